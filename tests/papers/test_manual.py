"""The manual: both languages tell the same, and what they quote is what the windows show."""
import pathlib
import re
import struct
import unittest
import xml.etree.ElementTree as ElementTree

SOURCE = pathlib.Path(__file__).resolve().parents[2]
MANUAL = SOURCE / "docs" / "manual"
PAGES = sorted(page.name for page in (MANUAL / "en").glob("*.md"))
# Texts that the windows take from Qt.
OF_QT = {"OK": {"OK"}, "Cancel": {"Abbrechen"}, "Save": {"Speichern"}, "Discard": {"Verwerfen"}}
WIDEST = 980  # pixels; the help window shows a page of this width


def page(language, name):
    return (MANUAL / language / name).read_text(encoding="utf-8")


def pictures(text):
    return re.findall(r"!\[[^\]]+\]\(([^)]+)\)", text)


def plain(text):
    """A text as a window shows it: without the sign of a mnemonic, and without the dots of a command that asks."""
    return re.sub(r"\s*\.\.\.$", "", text.replace("&", ""))


def quoted(text):
    """The texts of windows in a page, which stand in **bold**; a way through menus counts as each of its parts."""
    text = re.sub(r"```.*?^```$|`[^`]*`", "", text, flags=re.M | re.S)
    bold = [" ".join(found.split()) for found in re.findall(r"\*\*(.+?)\*\*", text, flags=re.S)]
    return {plain(part) for found in bold for part in found.split(" > ")}


def translations():
    """German texts by the English ones."""
    known = {source: set(german) for source, german in OF_QT.items()}
    for file in (SOURCE / "translations").glob("*_de.ts"):
        for message in ElementTree.parse(file).getroot().iter("message"):
            german = message.findtext("translation") or ""
            known.setdefault(plain(message.findtext("source")), set()).add(plain(german))
    return known


class Manual(unittest.TestCase):
    def test_each_page_is_there_in_both_languages_and_in_the_contents(self):
        self.assertGreater(len(PAGES), 8)
        for language in ("en", "de"):
            self.assertEqual(sorted(each.name for each in (MANUAL / language).glob("*.md")), PAGES)
            contents = re.findall(r"\]\((\w[\w-]*\.md)\)", page(language, "README.md"))
            self.assertEqual(sorted([*contents, "README.md"]), PAGES)

    def test_both_languages_have_the_same_sections_lists_tables_and_pictures(self):
        for name in PAGES:
            with self.subTest(page=name):
                english, german = (
                    re.findall(r"^(#+ |- |\d+\. |\|)|(!\[)", page(language, name), re.M) for language in ("en", "de"))
                self.assertEqual(english, german)
                self.assertEqual(pictures(page("en", name)), pictures(page("de", name)))

    def test_both_languages_show_the_same_commands(self):
        for name in PAGES:
            with self.subTest(page=name):
                english, german = (
                    re.findall(r"^```\w*\n.*?^```$", page(language, name), re.M | re.S) for language in ("en", "de"))
                self.assertEqual(english, german)

    def test_each_picture_is_there_fits_the_help_window_and_is_used(self):
        for language in ("en", "de"):
            used = {picture for name in PAGES for picture in pictures(page(language, name))}
            self.assertGreater(len(used), 5)
            for picture in used:
                with self.subTest(picture=picture):
                    data = (MANUAL / language / picture).read_bytes()
                    self.assertTrue(data.startswith(b"\x89PNG"))
                    self.assertLessEqual(struct.unpack(">I", data[16:20])[0], WIDEST)
            there = {f"pictures/{each.name}" for each in (MANUAL / language / "pictures").iterdir()}
            self.assertEqual(there, used)

    def test_what_is_quoted_stands_in_the_windows_in_both_languages(self):
        known = translations()
        for name in PAGES:
            with self.subTest(page=name):
                english, german = quoted(page("en", name)), quoted(page("de", name))
                for text in english:
                    self.assertIn(text, known, "no window says so")
                    self.assertTrue(known.get(text, set()) & german, f"**{text}** isn't quoted in German: {known.get(text)}")
                meant = set().union(*(known.get(text, set()) for text in english))
                self.assertEqual(german - meant, set(), "the English page doesn't quote it")

    def test_links_lead_to_pages_of_the_same_language(self):
        for name in PAGES:
            with self.subTest(page=name):
                for language in ("en", "de"):
                    for target in re.findall(r"(?<!!)\[[^\]]+\]\(([^)]+)\)", page(language, name)):
                        if not target.startswith("pictures/"):
                            self.assertIn(target, PAGES)


if __name__ == "__main__":
    unittest.main()
