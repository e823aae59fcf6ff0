"""Makes the documents: the guides of docs/ and the reference, which comes from the type library and members.yaml.

    build.py TYPE-LIBRARY OUTPUT-FOLDER VERSION
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

import reference

SITE = Path(__file__).parent
DOCS = SITE.parent
# Pages of the tools: where a tool is missing, its page says so.
TOOLS = ("command-line", "inspector", "installing", "samples", "trace")


def name_all(source):
    """Pages that the front page does not name follow at its end."""
    index = source / "index.md"
    text = index.read_text(encoding="utf-8")
    others = sorted(page.stem for page in source.glob("*.md") if page != index and page.stem not in text.split())
    if others:
        index.write_text("\n".join([text, "```{toctree}", ":caption: More", ":hidden:", "", *others, "```", ""]),
                         encoding="utf-8")


def main(type_library, output, version):
    output = Path(output)
    source = output / "source"
    shutil.rmtree(source, ignore_errors=True)
    source.mkdir(parents=True)
    for page in DOCS.glob("*.md"):
        shutil.copy(page, source)
    for tool in TOOLS:
        if not (DOCS / f"{tool}.md").exists():
            title = tool.replace("-", " ").capitalize()
            (source / f"{tool}.md").write_text(f"# {title}\n\nNot part of this build.\n", encoding="utf-8")
    name_all(source)
    if (DOCS / "images").is_dir():
        shutil.copytree(DOCS / "images", source / "images")
    shutil.copytree(SITE / "static", source / "static")
    shutil.copy(SITE / "conf.py", source)
    try:
        reference.write(type_library, source / "reference")
    except ValueError as error:
        return str(error)
    # What is not found, or reached from no page, is an error.
    run = subprocess.run([sys.executable, "-m", "sphinx", "-q", "-W", "--keep-going", "-b", "html",
                          "-d", str(output / "doctrees"), str(source), str(output / "html")],
                         env=os.environ | {"GHOSTHAND_VERSION": version}, check=False)
    return run.returncode


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
