"""Which build the package takes its module from, by a stand-in for CMake that notes its arguments."""

import os
import subprocess
import sys

import pytest
from conftest import SOURCES


@pytest.mark.parametrize(
    "environment, first_call",
    [
        ({}, f"-S {SOURCES} -B {SOURCES}/build/python/cmake-"),
        ({"QUORVEX_CMAKE_BUILD": ""}, f"-S {SOURCES} -B {SOURCES}/build/python/cmake-"),
        ({"QUORVEX_CMAKE_BUILD": "/of/mine"}, "--build /of/mine --target quorvex_python"),
    ],
    ids=["not told", "told nothing", "told"],
)
def test_a_build_that_is_not_given_is_configured(environment, first_call, tmp_path):
    cmake = tmp_path / "cmake"
    cmake.write_text(f"#!/bin/sh\necho \"$@\" >> '{tmp_path}/calls'\nexit 1\n")
    cmake.chmod(0o755)
    inherited = {k: v for k, v in os.environ.items() if k != "QUORVEX_CMAKE_BUILD"}
    path = f"{tmp_path}{os.pathsep}{os.environ['PATH']}"
    done = subprocess.run(
        [sys.executable, "setup.py", "build_ext"]
        + ["--build-lib", str(tmp_path / "lib"), "--build-temp", str(tmp_path / "temp")],
        cwd=SOURCES / "bindings/python",
        env={**inherited, "PATH": path, **environment},
        capture_output=True,
        text=True,
    )
    assert done.returncode != 0
    assert (tmp_path / "calls").read_text().startswith(first_call), done.stderr
