"""Builds the Python package. CMake compiles the module from the sources of this repository, in
build/python, and only what has changed since the last time; or in the folder that the variable
QUORVEX_CMAKE_BUILD names, a build of this repository with the module."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

import setuptools
from setuptools.command.build_ext import build_ext

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
BUILD = ROOT / "build" / "python"


def project_version() -> str:
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    match = re.search(r"project\(quorvex VERSION ([0-9.]+)", text)
    if match is None:
        raise RuntimeError("CMakeLists.txt does not say the project's version")
    return match.group(1)


def pybind11_options() -> list:
    """Where pybind11 is, when it was installed as a Python package; CMake finds Debian's itself."""
    try:
        import pybind11

        return [f"-Dpybind11_DIR={pybind11.get_cmake_dir()}"]
    except ImportError:
        return []


def configure(cmake: str, build: pathlib.Path) -> None:
    generator = ["-G", "Ninja"] if shutil.which("ninja") and not build.exists() else []
    subprocess.run(
        [
            cmake, "-S", ROOT, "-B", build, *generator, *pybind11_options(),
            "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS_RELEASE=-O2",
            "-DQUORVEX_BUILD_TOOLS=OFF", "-DQUORVEX_BUILD_C=OFF", "-DQUORVEX_BUILD_TESTS=OFF",
            "-DQUORVEX_BUILD_PYTHON=ON", f"-DPython_EXECUTABLE={sys.executable}",
        ],
        check=True,
    )  # fmt: skip


class CMakeBuild(build_ext):
    def build_extension(self, ext: setuptools.Extension) -> None:
        cmake = shutil.which("cmake")
        if cmake is None:
            raise RuntimeError("CMake is needed to build quorvex and was not found")
        given = os.environ.get("QUORVEX_CMAKE_BUILD", "")  # empty is as good as none
        build = pathlib.Path(given or BUILD / f"cmake-{sys.implementation.cache_tag}")
        if not given:
            configure(cmake, build)
        command = [cmake, "--build", build, "--target", "quorvex_python"]
        subprocess.run([*command, "--parallel", str(os.cpu_count() or 1)], check=True)
        target = pathlib.Path(self.get_ext_fullpath(ext.name))
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(build / "python" / "quorvex" / target.name, target)


# Where setuptools would leave its files beside the sources.
BUILD.mkdir(parents=True, exist_ok=True)
setuptools.setup(
    version=project_version(),
    packages=["quorvex"],
    package_data={"quorvex": ["py.typed", "*.pyi"]},
    ext_modules=[setuptools.Extension("quorvex._native", sources=[])],
    cmdclass={"build_ext": CMakeBuild},
    options={"build": {"build_base": str(BUILD)}, "egg_info": {"egg_base": str(BUILD)}},
    zip_safe=False,
)
