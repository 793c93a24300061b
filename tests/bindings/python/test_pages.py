"""The examples of the pages do what they say."""

import re
import subprocess
import sys

import pytest
from conftest import SOURCES, run_command


@pytest.mark.parametrize("page", ["docs/python.md"])
def test_the_example_with_opencv_runs(page, empty_folder):
    text = (SOURCES / page).read_text(encoding="utf-8")
    examples = re.findall(r"^```python\n(.*?)^```", text, re.MULTILINE | re.DOTALL)
    assert examples
    run_command("render", "--preset", "easy", "--output", "board.bmp", cwd=empty_folder)
    for example in examples:
        assert "cv2.imread" in example
        done = subprocess.run([sys.executable, "-c", example], capture_output=True, text=True)
        assert done.returncode == 0, done.stderr
        assert done.stdout.startswith("48 points; ")
