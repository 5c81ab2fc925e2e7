#!/usr/bin/env python3
"""Checks the help book: every page parses, every internal link and anchor
resolves, every handler of the command table has its anchor, and every page
a dialog or a command names exists.

Usage: check_help.py SOURCE_DIR
"""
import html.parser
import pathlib
import re
import sys
import urllib.parse


class Page(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.ids, self.links, self.open, self.title = set(), [], [], False
        self.has_title = False

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if "id" in attrs:
            self.ids.add(attrs["id"])
        for name in ("href", "src"):
            if name in attrs:
                self.links.append(attrs[name])
        if tag == "title":
            self.title = True
        if tag not in ("meta", "link", "br", "img", "hr", "input"):
            self.open.append(tag)

    def handle_endtag(self, tag):
        if tag == "title":
            self.title = False
        if not self.open or self.open[-1] != tag:
            raise ValueError(f"</{tag}> does not close <{self.open[-1] if self.open else ''}>")
        self.open.pop()

    def handle_data(self, data):
        if self.title and data.strip():
            self.has_title = True


def main(source):
    help_dir = source / "docs" / "help"
    problems = []
    pages = {}
    for path in sorted(help_dir.glob("*.html")):
        page = Page()
        try:
            page.feed(path.read_text(encoding="utf-8"))
            page.close()
            if page.open:
                raise ValueError(f"<{page.open[-1]}> is never closed")
        except ValueError as error:
            problems.append(f"{path.name}: {error}")
        if not page.has_title:
            problems.append(f"{path.name}: no title")
        pages[path.name] = page

    for name, page in pages.items():
        for link in page.links:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme or parts.netloc:
                problems.append(f"{name}: links outside the book: {link}")
                continue
            target = parts.path or name
            if not (help_dir / target).exists():
                problems.append(f"{name}: {link} has no page")
            elif parts.fragment and target in pages and parts.fragment not in pages[target].ids:
                problems.append(f"{name}: {link} has no anchor")

    anchors = set().union(*(page.ids for page in pages.values()))
    table = (source / "addin" / "command_table.cpp").read_text(encoding="utf-8")
    for handler in sorted(set(re.findall(r'"(mnuh\w+_Click)"', table))):
        if handler not in anchors:
            problems.append(f"the command {handler} has no help page")

    named = set(re.findall(r'OpenHelpPage, "([\w.-]+)"', table))
    for header in sorted((source / "builders").glob("*.h")):
        named |= set(re.findall(r'HelpTopic\(\) const override \{ return "([\w.-]+)"; \}',
                                header.read_text(encoding="utf-8")))
    for page in sorted(named):
        if page not in pages:
            problems.append(f"the page {page} is named but missing")

    for problem in problems:
        print(problem)
    print(f"{len(pages)} pages, {len(anchors)} anchors, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".")))
