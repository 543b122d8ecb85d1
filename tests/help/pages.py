#!/usr/bin/env python3
"""A browser lays out every page of the help at the widths of a narrow and of a wide window, in light and in dark: nothing
reaches beyond the page's side, and every picture is there.

    pages.py SOURCES

Needs Chromium, and is passed over without it.
"""

import html
import json
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

SOURCES = Path(sys.argv[1]).resolve()
SKIPPED = 77
WIDTHS = (400, 1000)
# Pictures are scaled by the window that shows the help; a browser is told to do so.
STYLE = {
    "light": "img { max-width: 100% } body { color: black; background: white }",
    "dark": "img { max-width: 100% } body { color: #eee; background: #1e1e20 } a { color: #78afff }",
}
LOOK = """
<!DOCTYPE html><meta charset="utf-8"><body><script>
const results = [];
async function look() {
    for (const [page, width, kind, style] of JOBS) {
        const frame = document.createElement("iframe");
        frame.width = width;
        frame.height = 900;
        await new Promise(done => { frame.onload = done; frame.src = page; document.body.append(frame); });
        const inside = frame.contentDocument;
        const sheet = inside.createElement("style");
        sheet.textContent = style;
        inside.head.append(sheet);
        const pictures = [...inside.images];
        results.push({page, width, kind, wide: inside.documentElement.scrollWidth,
                      room: inside.documentElement.clientWidth, pictures: pictures.length,
                      lost: pictures.filter(picture => picture.naturalWidth == 0).map(picture => picture.src)});
        frame.remove();
    }
    const told = document.createElement("pre");
    told.id = "told";
    told.textContent = JSON.stringify(results);
    document.body.append(told);
}
look();
</script>
"""


def main():
    browser = shutil.which("chromium")
    if browser is None:
        print("Chromium is not installed: the pages are not laid out by it.")
        return SKIPPED
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        subprocess.run([SOURCES / "tools/make_help", SOURCES / "docs/help", folder / "help"], check=True)
        pages = sorted(page.name for page in (folder / "help").glob("*.html"))
        jobs = [(page, width, kind, style) for page in pages for width in WIDTHS for kind, style in STYLE.items()]
        (folder / "help/look.html").write_text(LOOK.replace("JOBS", json.dumps(jobs)))
        seen = subprocess.run(
            [browser, "--headless", "--no-sandbox", "--disable-gpu", "--allow-file-access-from-files",
             f"--user-data-dir={folder / 'profile'}", "--virtual-time-budget=600000", "--dump-dom",
             (folder / "help/look.html").as_uri()],
            capture_output=True, text=True, timeout=600)
        told = re.search(r'<pre id="told">(.*?)</pre>', seen.stdout, re.S)
        if told is None:
            print(seen.stderr[-2000:])
            return 1
        results = json.loads(html.unescape(told[1]))
    faults = [result for result in results if result["wide"] > result["room"] or result["lost"]]
    for fault in faults:
        print(fault)
    pictures = sum(result["pictures"] for result in results)
    print(f"{len(pages)} pages, {len(results)} layouts, {pictures} pictures, {len(faults)} faults")
    return 1 if faults or len(results) != len(jobs) or pictures == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
