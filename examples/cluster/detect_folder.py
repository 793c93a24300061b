#!/usr/bin/env python3
"""Detects the marks of every picture of a folder on a Dask cluster, and writes one CSV file.

    detect_folder.py PICTURES points.csv --workers 4                        on this machine
    detect_folder.py PICTURES points.csv --scheduler tcp://10.0.0.1:8786    on a running cluster

Workers need the module quorvex and OpenCV's Python module, and see the pictures under the same
name. A worker that is lost has its pictures done by others. Results come to this program, which is
alone in writing, one picture at a time, in the order in which they are finished: into
points.csv.part, which becomes points.csv at the end. After a run that was ended, --resume goes on
with what is there; so it does after a run that an error of the place ended, as of a connection that
was lost or a worker without the modules.

The columns are those of `quorvex detect --precise` on many pictures. A picture that fails has one
row of the kind "failed", and a sentence on standard error says why. Such a picture counts as done;
its row has to be deleted for --resume to try it again.

Exit code: 0, 1 when a picture failed or the run was ended, 2 for bad usage."""

import argparse
import contextlib
import csv
import io
import os
import pathlib
import sys

import distributed

COLUMNS = ["image", "id", "row", "col", "x", "y", "kind", "cxx", "cxy", "cyy"]
ENDINGS = {".bmp", ".png", ".jpg", ".jpeg", ".tif", ".tiff", ".pgm"}
KINDS = ["measured", "doubtful", "predicted"]
LEAST_AHEAD = 8  # pictures
AHEAD_PER_THREAD = 4  # pictures given to the cluster beyond those that are finished
# Names of files need not be UTF-8; such bytes come back as they are.
ENCODING = {"encoding": "utf-8", "errors": "surrogateescape"}


def detect_file(path):
    """Runs on a worker: the rows of one picture, without its name, or why there are none.

    path  bytes, since OpenCV takes no name that is not UTF-8; the file is read here.
    """
    import cv2
    import numpy as np
    import quorvex

    try:
        data = np.fromfile(path, np.uint8)
    except OSError as error:
        if not os.path.isdir(os.path.dirname(path)):
            raise  # the worker does not see the pictures
        return f"it cannot be read: {error.strerror}"
    try:
        image = cv2.imdecode(data, cv2.IMREAD_GRAYSCALE | cv2.IMREAD_IGNORE_ORIENTATION)
    except cv2.error as error:  # as of an empty file, or of a size that is not taken
        if error.code == cv2.Error.StsNoMem:
            raise MemoryError(str(error)) from error
        image = None
    if image is None:
        return "it cannot be read as a picture"
    try:
        marks = quorvex.detect_precise(image)
    except ValueError as error:  # no target, or too small a picture
        return str(error)
    return [
        [m["id"], m["row"], m["col"], f"{m['x']:.9g}", f"{m['y']:.9g}", KINDS[m["verdict"]]]
        + [f"{m[name]:.6g}" for name in ("cxx", "cxy", "cyy")]
        for m in marks
    ]


def failed_row(name):
    return [name, "", "", "", "", "", "failed", "", "", ""]


def csv_line(row):
    """Python's writer quotes a carriage return only when its own lines end with one."""
    text = io.StringIO()
    csv.writer(text, lineterminator="\r\n").writerow(row)
    return text.getvalue()[:-2] + "\n"


class Output:
    """The list as far as it is known, in FILE.part; FILE once it is whole."""

    def __init__(self, path, resume):
        self.path = path
        self.part = path.with_name(path.name + ".part")
        self.done = set()
        if resume and (self.part.exists() or path.exists()):
            rows = self._finished_rows()
        elif self.part.exists() or path.exists():
            there = self.part if self.part.exists() else path
            raise FileExistsError(f"{there} is there already; --resume goes on with it")
        else:
            rows = []
        self.done = {row[0] for row in rows}
        start = self.part.with_name(self.part.name + ".new")
        with open(start, "w", newline="", **ENCODING) as file:
            file.writelines(csv_line(row) for row in [COLUMNS, *rows])
        os.replace(start, self.part)
        self.file = open(self.part, "a", newline="", **ENCODING)

    def _finished_rows(self):
        """Pictures are written one after the other, so only the last one may be there in part."""
        is_part = self.part.exists()
        path = self.part if is_part else self.path
        text = path.read_bytes()
        lines = text[: text.rfind(b"\n") + 1].decode(**ENCODING)
        rows = list(csv.reader(io.StringIO(lines, newline="")))  # a name may hold ends of lines
        if rows[:1] != [COLUMNS]:
            raise ValueError(f"{path} does not begin with {','.join(COLUMNS)}")
        rows = rows[1:]
        if rows and len(rows[-1]) != len(COLUMNS):  # cut within a name
            rows.pop()
        if not is_part or not rows:
            return rows
        return [row for row in rows if row[0] != rows[-1][0]]

    def write(self, rows):
        self.file.writelines(csv_line(row) for row in rows)
        self.file.flush()

    def finish(self):
        os.fsync(self.file.fileno())
        self.file.close()
        os.replace(self.part, self.path)


class RunEnded(Exception):
    """An error of the place, not of a picture."""


def outcome_of(future):
    """What detect_file returned, or a sentence where only the picture can be at fault."""
    if future.status == "finished":
        return future.result()
    if future.status != "error":
        raise RunEnded(f"the connection to the cluster was lost (a picture was {future.status})")
    error = future.exception()
    if isinstance(error, distributed.KilledWorker):
        return "every worker that took it was lost"
    raise RunEnded(f"a worker failed: {error!r}")


def detect_all(client, folder, names, output):
    """Every picture once; the number of those that failed."""
    ahead = max(LEAST_AHEAD, AHEAD_PER_THREAD * sum(client.nthreads().values()))
    waiting = iter(names)
    names_of = {}
    running = distributed.as_completed()

    def start_one():
        name = next(waiting, None)
        if name is not None:
            future = client.submit(detect_file, os.fsencode(folder / name), pure=False)
            names_of[future.key] = name
            running.add(future)

    for _ in range(ahead):
        start_one()
    failures = 0
    for future in running:
        name = names_of.pop(future.key)
        result = outcome_of(future)
        if isinstance(result, str):
            print(f"detect_folder: {name}: {result}", file=sys.stderr)
            failures += 1
            output.write([failed_row(name)])
        else:
            output.write([[name, *row] for row in result])
        del future, result
        start_one()
    return failures


def parse_arguments():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("output", type=pathlib.Path)
    where = parser.add_mutually_exclusive_group(required=True)
    where.add_argument("--workers", type=int, metavar="N", help="worker processes on this machine")
    where.add_argument("--scheduler", metavar="ADDRESS", help="of a running cluster")
    parser.add_argument("--resume", action="store_true", help="go on with the list that is there")
    arguments = parser.parse_args()
    if not arguments.folder.is_dir():
        parser.error(f"{arguments.folder} is no folder")
    if arguments.workers is not None and arguments.workers < 1:
        parser.error(f"--workers: expected 1 or more, given {arguments.workers}")
    return parser, arguments


def connect(stack, arguments):
    """A client of the cluster; both are closed with the stack."""
    if arguments.scheduler:
        return stack.enter_context(distributed.Client(arguments.scheduler))
    cluster = distributed.LocalCluster(
        n_workers=arguments.workers, threads_per_worker=1, dashboard_address=None
    )
    return stack.enter_context(distributed.Client(stack.enter_context(cluster)))


def main():
    parser, arguments = parse_arguments()
    folder = arguments.folder.resolve()
    names = sorted(p.name for p in folder.iterdir() if p.suffix.lower() in ENDINGS)
    if not names:
        parser.error(f"{arguments.folder} holds no picture: {', '.join(sorted(ENDINGS))}")
    with contextlib.ExitStack() as stack:
        try:
            client = connect(stack, arguments)
            output = Output(arguments.output, arguments.resume)
        except (OSError, ValueError) as error:
            parser.error(str(error))
        left = [name for name in names if name not in output.done]
        try:
            failures = detect_all(client, folder, left, output)
        except (RunEnded, OSError) as error:
            print(f"detect_folder: {error}; --resume goes on with {output.part}", file=sys.stderr)
            return 1
    output.finish()
    print(
        f"detect_folder: {len(left)} pictures done, {failures} failed, "
        f"{len(names) - len(left)} were there",
        file=sys.stderr,
    )
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
