#!/usr/bin/env python3
"""Runs the examples of the documentation. Usage: run_examples.py BUILD_FOLDER

In README.md and docs/*.md, a block after a comment `<!-- file: NAME -->` becomes that file, a block
of the language `sh` is run, and a block of the language `text` that follows one is what it prints on
standard output; decimal fractions and blanks in a row may differ. Each page has a scratch folder
that looks like the source tree, with the build as its build/release.
"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
BLOCK = re.compile(r"(?:<!-- file: (\S+) -->\n+)?^```(\w+)\n(.*?)^```$", re.M | re.S)


def alike(text):
    return re.sub(r"[ \t]+", " ", re.sub(r"-?\d+\.\d+", "#", text)).strip()


def run_page(page, scratch):
    count = 0
    printed = None
    for name, language, body in BLOCK.findall(page.read_text()):
        where = f"{page.relative_to(SOURCE)}: ```{language}\n{body}```"
        if name:
            (scratch / name).parent.mkdir(parents=True, exist_ok=True)
            (scratch / name).write_text(body)
        elif language == "sh":
            run = subprocess.run(["sh", "-ec", body], cwd=scratch, capture_output=True, text=True)
            if run.returncode != 0:
                logs = "".join(log.read_text() for log in scratch.glob("*.log"))
                sys.exit(f"{where}\nended with {run.returncode}:\n{run.stdout}{run.stderr}{logs}")
            printed = run.stdout
            count += 1
        elif language == "text" and printed is not None:
            if alike(printed) != alike(body):
                sys.exit(f"{where}\nbut it printed:\n{printed}")
            printed = None
        elif language not in ("text", "toml"):  # A test of its own reads those.
            sys.exit(f"{where}\nis run by nobody")
    if count:
        print(f"{page.relative_to(SOURCE)}: {count} shell blocks run")
    return count


def scratch_tree(scratch):
    for entry in SOURCE.iterdir():
        if entry.name not in ("build", "out", ".git"):
            (scratch / entry.name).symlink_to(entry)
    (scratch / "build").mkdir()
    (scratch / "build/release").symlink_to(Path(sys.argv[1]).resolve())


def run_beside(page):
    with tempfile.TemporaryDirectory() as folder:
        scratch_tree(Path(folder))
        return run_page(page, Path(folder))


pages = [SOURCE / "README.md", *sorted((SOURCE / "docs").glob("*.md"))]
if sum(run_beside(page) for page in pages) == 0:
    sys.exit("There is no example.")
