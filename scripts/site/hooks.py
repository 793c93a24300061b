"""What mkdocs does besides: pages that stand outside of docs/, and links to what the site keeps elsewhere."""

import os
import re

from mkdocs.structure.files import File

OUTSIDE = ["CONTRIBUTING.md", "CHANGELOG.md", "SECURITY.md", "LICENSE"]
NOT_FOR_READERS = {"Doxyfile", "api_main.dox"}
HEADER = re.compile(r"\[([^\]]*)\]\(\.\./interface/(\w+)\.h\)")


def on_files(files, config):
    root = os.path.dirname(config.config_file_path)
    for file in list(files):
        if file.src_path in NOT_FOR_READERS:
            files.remove(file)
    for name in OUTSIDE:
        files.append(File(name, root, config.site_dir, config.use_directory_urls))
    return files


def doxygen_page(header: str) -> str:
    """The name that doxygen gives the page of a header; what the record's header has is the record."""
    return "structCalibrationPoint.html" if header == "calibration_point" else header.replace("_", "__") + "_8h.html"


def on_page_markdown(markdown, page, config, files):
    if page.file.src_path in OUTSIDE:
        markdown = markdown.replace("](docs/", "](")
    markdown = re.sub(r"\]\(\.\./(CONTRIBUTING\.md|CHANGELOG\.md|SECURITY\.md|LICENSE)", r"](\1", markdown)
    return HEADER.sub(lambda link: f'<a href="api/{doxygen_page(link[2])}">{link[1].strip("`")}</a>', markdown)
