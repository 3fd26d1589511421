"""The reference of the Python package as HTML: `cmake --build build/dev --target reference`."""
project = "mrl"
author = copyright = "the authors of the load-case and action manager"
extensions = ["sphinx.ext.autodoc"]
autodoc_member_order = "bysource"
autodoc_typehints_format = "short"
default_role = "code"  # backticks in docstrings are names
html_copy_source = False
html_show_sourcelink = False
html_theme = "alabaster"
html_theme_options = {"description": "Actions, load cases and combinations of structural projects"}
