"""What ships: the files whose faults the tests must notice."""

import re
from pathlib import Path

from tests.support import exports_list

FOLDERS = ("log", "splash", "udisk", "util")


def product_files(root):
    """The sources, and the headers that are private to them."""
    root = Path(root)
    listed = (root / "cmake/product.cmake").read_text(encoding="utf-8")
    lists = re.findall(r"^set\((?:util|device)_sources\n.*?\)", listed, re.DOTALL | re.MULTILINE)
    sources = re.findall(r"^\s+([\w/]+\.cpp)\)?$", "\n".join(lists), re.MULTILINE)
    public = set(exports_list.sections(root / "tool/exports.list")) | {"util/timeutils.h"}
    headers = [str(path.relative_to(root)) for folder in FOLDERS
               for path in sorted((root / folder).rglob("*.h"))]
    return ["tool/main.cpp", *sources, *(name for name in headers if name not in public)]
