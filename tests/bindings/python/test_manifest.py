"""Whole detections of the rendered presets, held to the bit by the library's manifest."""

import pytest
from conftest import SOURCES, read_bmp

import quorvex

PRESETS = ["fisheye", "easy", "tilted", "dropped", "large"]


def fnv_hash(data):
    value = 0xCBF29CE484222325
    for byte in data:
        value = (value ^ byte) * 0x100000001B3 & 0xFFFFFFFFFFFFFFFF
    return value


def manifest():
    hashes = {}
    for line in (SOURCES / "tests/road/manifest.txt").read_text().splitlines():
        if not line.startswith("#"):
            preset, name, _, value = line.split()
            hashes.setdefault(preset, {})[name] = value
    return hashes


def test_every_preset_is_looked_at():
    assert sorted(manifest()) == sorted(PRESETS)


@pytest.mark.parametrize("preset", PRESETS)
def test_points_are_those_of_the_manifest(preset, render, empty_folder):
    points = quorvex.detect(read_bmp(render(preset)))
    text = "".join(
        f"{p['id']} {p['row']} {p['col']} {float(p['x']):.9g} {float(p['y']):.9g}\n" for p in points
    )
    assert f"{fnv_hash(text.encode()):016x}" == manifest()[preset]["points"]
    assert list(empty_folder.iterdir()) == []


def test_diagnostics_are_those_of_the_manifest(render, tmp_path):
    folder = tmp_path / "kept" / "dropped"
    quorvex.detect(read_bmp(render("dropped")), diagnostics=folder)
    expected = {k: v for k, v in manifest()["dropped"].items() if k not in ("input", "points")}
    assert sorted(path.name for path in folder.iterdir()) == sorted(expected)
    # Hashed in plain Python: the lists and the smallest pictures.
    for path in folder.iterdir():
        if path.stat().st_size < 100_000:
            assert f"{fnv_hash(path.read_bytes()):016x}" == expected[path.name], path.name
