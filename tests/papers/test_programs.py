"""The code in the papers for programmers is that of programs which tests/packaging builds and runs."""
import pathlib
import re
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
PAPERS = (SOURCE / "docs" / "call-us.md", SOURCE / "docs" / "host-us.md")
BLOCK = re.compile(r"(?:<!-- (?P<file>\S+) -->\n)?```(?:cpp|cmake)\n(?P<code>.*?)^```$", re.M | re.S)


class Programs(unittest.TestCase):
    def test_each_block_stands_in_the_program_that_it_names(self):
        for paper in PAPERS:
            blocks = list(BLOCK.finditer(paper.read_text(encoding="utf-8")))
            self.assertGreater(len(blocks), 3, paper.name)
            for block in blocks:
                with self.subTest(paper=paper.name, code=block["code"][:60]):
                    self.assertIsNotNone(block["file"], "no comment above names the program")
                    source = SOURCE / "tests" / "packaging" / block["file"]
                    self.assertIn(block["code"], source.read_text(encoding="utf-8"), block["file"])

    def test_headers_that_are_named_are_there(self):
        for paper in PAPERS:
            for header in re.findall(r"`((?:\w+/)+\w+\.h)`", paper.read_text(encoding="utf-8")):
                self.assertTrue((SOURCE / header).exists(), f"{paper.name}: {header}")


class Links(unittest.TestCase):
    def test_links_of_all_papers_lead_somewhere(self):
        papers = [*SOURCE.glob("*.md"), *(SOURCE / "docs").rglob("*.md")]
        self.assertGreater(len(papers), 20)
        for paper in papers:
            text = re.sub(r"```.*?^```$|`[^`\n]*`", "", paper.read_text(encoding="utf-8"), flags=re.M | re.S)
            for target in re.findall(r"\]\(([^)\s]+)\)", text):
                file, _, anchor = target.partition("#")
                if "://" in target:
                    continue
                with self.subTest(paper=paper.name, target=target):
                    place = paper.parent / file if file else paper
                    self.assertTrue(place.exists())
                    if anchor:
                        self.assertIn(anchor, anchors(place))


def anchors(paper):
    """The anchors that a forge makes of the headings."""
    found = set()
    for heading in re.findall(r"^#+ (.*)$", paper.read_text(encoding="utf-8"), re.M):
        words = re.sub(r"[^\w\- ]", "", heading.lower())
        found.add(words.replace(" ", "-"))
    return found


if __name__ == "__main__":
    unittest.main()
