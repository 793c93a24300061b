"""Runs pytest on a file, or says which package is missing and ends with 77.

run_pytest.py FILE [PACKAGE=MODULE...]: the Debian packages that the file needs, and their modules."""

import importlib
import sys


def main() -> int:
    for need in ["python3-pytest=pytest", "python3-numpy=numpy", *sys.argv[2:]]:
        package, module = need.split("=")
        try:
            importlib.import_module(module)
        except ImportError:
            print(f"Skipped: {package} is not installed")
            return 77
    import pytest

    return int(pytest.main(["-q", "-p", "no:cacheprovider", sys.argv[1]]))


sys.exit(main())
