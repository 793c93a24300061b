"""What the tests of the Python module share: rendered pictures and the command's own lists."""

import csv
import io
import os
import pathlib
import subprocess

import numpy as np
import pytest

COMMAND = os.environ["QUORVEX_COMMAND"]
SOURCES = pathlib.Path(os.environ["QUORVEX_SOURCES"])


def read_bmp(path):
    """An 8-bit BMP file as the renderer writes it: a view whose rows run upwards in memory."""
    data = path.read_bytes()
    offset, width, height = (
        int.from_bytes(data[at : at + 4], "little", signed=True) for at in (10, 18, 22)
    )
    assert data[:2] == b"BM" and data[28] == 8 and height > 0
    stride = (width + 3) // 4 * 4
    rows = np.frombuffer(data, np.uint8, stride * height, offset).reshape(height, stride)
    return rows[::-1, :width]


def run_command(*arguments, cwd):
    done = subprocess.run([COMMAND, *arguments], cwd=cwd, capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    return done.stdout


def detect_by_command(path, *options):
    """The rows of the list that the command gives for a picture, as dicts of texts."""
    text = run_command("detect", path.name, *options, cwd=path.parent)
    return list(csv.DictReader(io.StringIO(text)))


@pytest.fixture(scope="module")
def render(tmp_path_factory):
    """Renders a preset and returns the path of its picture."""
    folder = tmp_path_factory.mktemp("rendered")

    def render_preset(preset):
        path = folder / f"{preset}.bmp"
        if not path.exists():
            run_command("render", "--preset", preset, "--output", path.name, cwd=folder)
        return path

    return render_preset


@pytest.fixture
def easy_path(render):
    return render("easy")


@pytest.fixture
def easy(easy_path):
    return read_bmp(easy_path)


@pytest.fixture(autouse=True)
def empty_folder(tmp_path, monkeypatch):
    """Every test runs in a folder of its own, which is empty at first."""
    folder = tmp_path / "current"
    folder.mkdir()
    monkeypatch.chdir(folder)
    return folder
