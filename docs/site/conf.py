"""Sphinx's settings. build.py hands the version over."""

import os

project = "Ghosthand"
version = release = os.environ.get("GHOSTHAND_VERSION", "")
extensions = ["myst_parser"]
myst_enable_extensions = ["deflist", "colon_fence"]
myst_heading_anchors = 3
# Pieces of a page may begin with a lower heading.
suppress_warnings = ["myst.header"]
html_theme = "furo"
html_title = f"Ghosthand {release}".strip()
html_static_path = ["static"]
html_css_files = ["site.css"]
html_copy_source = False
html_show_sphinx = False
html_show_copyright = False
# Both have enough contrast.
pygments_style = "default"
pygments_dark_style = "github-dark"
html_theme_options = {"navigation_with_keys": False}
