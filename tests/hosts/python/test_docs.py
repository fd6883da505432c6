"""The examples of the pages, as they stand there, each page in one folder from its first to its last."""

import re
import subprocess
import sys

import pytest
from conftest import SOURCE


@pytest.mark.parametrize("page", ["README.md", "docs/python.md"])
def test_the_examples_run(page, model, repository, tmp_path):
    for source in (model, repository):
        (tmp_path / source.name).write_bytes(source.read_bytes())
    (tmp_path / "scripts").mkdir()
    examples = re.findall(r"^```python\n(.*?)^```", (SOURCE / page).read_text(encoding="utf-8"), re.M | re.S)
    assert examples
    run = subprocess.run([sys.executable, "-c", "\n".join(examples)], cwd=tmp_path, capture_output=True, text=True)
    assert (run.returncode, run.stderr) == (0, "")
    said = re.findall(r"# prints (.*)$", "\n".join(examples), re.M)
    assert run.stdout.splitlines() == said
