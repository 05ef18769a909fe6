"""The page in a browser: whatever stands in a document, the browser shows it as text and runs none of it."""

import html.parser
import os
import shutil
import subprocess
import sys
import unittest

import test_command
from test_command import CommandTests

HOSTILE = [
    "<script>document.title = 'run'</script>",
    "</pre></td></tr></table><script>document.title = 'run'</script>",
    "</style><script>document.title = 'run'</script>",
    '"><img src=x onerror="document.title=\'run\'">',
    "<svg onload=document.title='run'>",
    "<!-- 1 + 2 --> <![CDATA[ x ]]>",
    "&lt;b&gt; &amp;amp; &#60;i&#62;",
    "a 'quote' and a \"quote\": 3 <4> 5",
    "javascript:document.title='run'",
    "<a href=\"javascript:document.title='run'\">1 + 1</a>",
    "\u202e<iframe src='data:text/html,<script>parent.document.title=1</script>'>",
]

# The elements that a page is made of.
KNOWN = {"html", "head", "meta", "style", "body", "div", "table", "tbody", "tr", "td", "pre", "span"}


class Cells(html.parser.HTMLParser):
    """Which elements there are, and the text of each line's cell."""

    def __init__(self):
        super().__init__(convert_charrefs=True)
        self.elements = set()
        self.lines = []
        self.within = False

    def handle_starttag(self, tag, attributes):
        self.elements.add(tag)
        self.elements.update(name for name, _ in attributes if name.startswith("on"))
        if tag == "pre":
            self.within = True
            self.lines.append("")

    def handle_endtag(self, tag):
        self.within = self.within and tag != "pre"

    def handle_data(self, text):
        if self.within:
            self.lines[-1] += text


class PageTests(CommandTests):
    def test_the_page_is_as_the_language_wants_it(self):
        for example in sorted((test_command.EXAMPLES).glob("*.tabulon")):
            self.output_of("preview", str(example), "-o", "page.html")
            checked = subprocess.run(["xmllint", "--html", "--noout", self.path("page.html")], capture_output=True)
            self.assertEqual((checked.returncode, checked.stderr), (0, b""), example)


class BrowserTests(CommandTests):
    def test_hostile_text_is_text(self):
        browser = shutil.which("chromium") or shutil.which("chromium-browser") or shutil.which("google-chrome")
        if not browser:
            self.skipTest("left out: no browser is installed")
        self.write("notes.txt", "\n".join(HOSTILE) + "\n")
        self.output_of("convert", "notes.txt", "notes.tabulon")
        for command in [["preview", "notes.tabulon"], ["export", "notes.tabulon", "--format", "html-inline"]]:
            self.output_of(*command, "-o", "page.html")
            result = subprocess.run(
                [browser, "--headless", "--no-sandbox", "--disable-gpu", f"--user-data-dir={self.path('profile')}",
                 "--virtual-time-budget=2000", "--dump-dom", "file://" + self.path("page.html")],
                capture_output=True, timeout=120,
            )  # fmt: skip
            if result.returncode != 0:
                self.skipTest("left out: the browser doesn't run here")
            cells = Cells()
            cells.feed(result.stdout.decode())
            self.assertEqual(cells.elements - KNOWN, set())
            self.assertEqual(cells.lines, HOSTILE)


if __name__ == "__main__":
    test_command.COMMAND = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
