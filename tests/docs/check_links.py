"""No dead link: every link of the HTML documents leads to a file that exists, and to an anchor that is in it.

    check_links.py HTML-FOLDER
"""

import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    def __init__(self, path):
        super().__init__()
        self.anchors, self.links, self.loaded = set(), [], []
        self.feed(path.read_text(encoding="utf-8"))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self.anchors |= {attributes[key] for key in ("id", "name") if attributes.get(key)}
        for key in ("href", "src"):
            if attributes.get(key) is not None:
                (self.links if tag == "a" else self.loaded).append(attributes[key])


def problems(folder):
    pages = {path.resolve(): Page(path) for path in folder.rglob("*.html")}
    if not pages:
        yield f"there is no page in {folder}"
    for path, page in pages.items():
        here = path.relative_to(folder.resolve())
        for link in page.links + page.loaded:
            parts = urlsplit(link)
            if parts.scheme or parts.netloc:
                if link in page.loaded:
                    yield f"{here} loads {link} from the net"
                continue
            target = (path.parent / unquote(parts.path)).resolve() if parts.path else path
            if not target.is_file():
                yield f"{here} leads to {link}, which does not exist"
            elif parts.fragment and target in pages and unquote(parts.fragment) not in pages[target].anchors:
                yield f"{here} leads to {link}: there is no such place in it"
    for style in folder.rglob("*.css"):
        if "url(http" in style.read_text(encoding="utf-8").replace('"', "").replace("'", ""):
            yield f"{style.name} loads from the net"


def main(folder):
    found = list(problems(Path(folder)))
    print("\n".join(found) or "no dead link")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
