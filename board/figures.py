"""Figures that a run brings about, kept for the table of all of them."""

from pathlib import Path

FOLDER = Path(__file__).parent.parent / "build" / "figures"


def write(name, figures):
    """Prints labels with their figures, and keeps them in a file."""
    FOLDER.mkdir(parents=True, exist_ok=True)
    lines = [f"{label}\t{figure}\n" for label, figure in figures.items()]
    (FOLDER / f"{name}.tsv").write_text("".join(lines))
    print("".join(lines), end="")
