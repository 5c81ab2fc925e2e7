#!/usr/bin/env python3
"""Checks the help book: every page parses, every internal link and anchor
resolves, every handler of the command table has its anchor, and every page
a dialog or a command names exists. When Chromium is installed, every page
is also loaded in headless Chromium (no network) and must come out as a
document with its title and heading; without it that step is skipped with
a line saying so.

Usage: check_help.py SOURCE_DIR
"""
import html
import html.parser
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
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


PROBE = """<!DOCTYPE html><html><head><meta charset="utf-8"></head><body>
<pre id="probe"></pre>{frames}
<script>
window.addEventListener("load", () => {{
  const seen = {{}};
  for (const frame of document.querySelectorAll("iframe")) {{
    const page = frame.contentDocument;
    const h1 = page && page.querySelector("h1");
    seen[frame.dataset.name] = page ? [page.title, h1 ? h1.textContent : ""] : null;
  }}
  document.getElementById("probe").textContent = JSON.stringify(seen);
}});
</script></body></html>
"""


def chromium_problems(pages):
    """Loads every page in one run of headless Chromium (each in a frame of
    a probe page that reads its title and heading); the problems found."""
    browser = next(filter(None, map(shutil.which, ("chromium", "chromium-browser"))), None)
    if not browser:
        print("chromium is not installed (scripts/install-deps.sh): pages not loaded in a browser")
        return []
    with tempfile.TemporaryDirectory() as work:
        probe = pathlib.Path(work) / "probe.html"
        probe.write_text(PROBE.format(frames="".join(
            f'<iframe data-name="{path.name}" src="{path.resolve().as_uri()}"></iframe>'
            for path in pages)), encoding="utf-8")
        command = [browser, "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
                   "--disable-background-networking", "--disable-component-update",
                   "--disable-sync", "--proxy-server=127.0.0.1:9",
                   "--allow-file-access-from-files", "--virtual-time-budget=10000",
                   f"--user-data-dir={work}/profile", "--dump-dom", probe.as_uri()]
        try:
            dom = subprocess.run(command, capture_output=True, text=True, timeout=300).stdout
        except subprocess.TimeoutExpired:
            return ["chromium did not load the pages in 300 s"]
    found = re.search(r'<pre id="probe">(.*?)</pre>', dom, re.S)
    if not found or not found.group(1):
        return ["chromium gave no answer from the probe page"]
    seen = json.loads(html.unescape(found.group(1)))
    problems = []
    for path in pages:
        source = path.read_text(encoding="utf-8")
        title = re.search(r"<title>(.*?)</title>", source, re.S)
        heading = re.search(r"<h1>(.*?)</h1>", source, re.S)
        shown = seen.get(path.name)
        if not shown:
            problems.append(f"{path.name}: chromium did not load it")
            continue
        if title and shown[0] != html.unescape(title.group(1)):
            problems.append(f"{path.name}: chromium shows the title {shown[0]!r}")
        if heading and shown[1] != html.unescape(re.sub(r"<.*?>", "", heading.group(1))):
            problems.append(f"{path.name}: chromium shows the heading {shown[1]!r}")
    return problems


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

    problems += chromium_problems(sorted(help_dir.glob("*.html")))
    for problem in problems:
        print(problem)
    print(f"{len(pages)} pages, {len(anchors)} anchors, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".")))
