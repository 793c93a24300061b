"""A local scheduler and two workers, one of which is ended in mid-run."""

import csv
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

import cv2
import numpy as np
import pytest

import quorvex

COMMAND = os.environ["QUORVEX_COMMAND"]
SOURCES = pathlib.Path(os.environ["QUORVEX_SOURCES"])
PROGRAM = SOURCES / "examples/cluster/detect_folder.py"

SEEDS = 3
COPIES = 20  # of each rendered picture
PATIENCE = 120  # seconds
ENCODING = {"encoding": "utf-8", "errors": "surrogateescape"}


def wait_for(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        assert time.monotonic() < end, f"waited in vain for {what}"
        time.sleep(0.02)


def count_pictures(path):
    if not path.exists():
        return 0
    with open(path, newline="", **ENCODING) as file:
        return len({row[0] for row in csv.reader(file) if row}) - 1


@pytest.fixture(scope="module")
def pictures(tmp_path_factory):
    """A folder of pictures, one of which is none, and the rows that each must have."""
    folder = tmp_path_factory.mktemp("pictures")
    expected = {"broken.bmp": [["", "", "", "", "", "failed"]]}
    for seed in range(SEEDS):
        first = folder / f"{seed}-0.bmp"
        subprocess.run(
            [COMMAND, "render", "--preset", "easy", "--seed", str(seed + 1)]
            + ["--output", str(first), "--truth", str(tmp_path_factory.mktemp("truth") / "marks.csv")],
            check=True,
            capture_output=True,
        )
        rows = [
            [str(m["id"]), str(m["row"]), str(m["col"]), f"{m['x']:.9g}", f"{m['y']:.9g}"]
            + ["measured"]
            for m in quorvex.detect_precise(cv2.imread(str(first), cv2.IMREAD_GRAYSCALE))
        ]
        for copy in range(COPIES):
            name = f"{seed}-{copy}.bmp"
            if copy > 0:
                shutil.copy(first, folder / name)
            expected[name] = rows
    (folder / "broken.bmp").write_text("no picture")
    (folder / "notes.txt").write_text("not looked at")
    return folder, expected


@pytest.fixture
def cluster(tmp_path):
    """A scheduler with two workers: its address and the processes, the scheduler's last."""
    started = []

    def start(module, *arguments):
        process = subprocess.Popen(
            [sys.executable, "-m", module, *arguments],
            cwd=tmp_path,
            stdout=subprocess.DEVNULL,
            stderr=subprocess.DEVNULL,
        )
        started.append(process)
        return process

    told = tmp_path / "scheduler.json"
    scheduler = start(
        "distributed.cli.dask_scheduler",
        *("--host", "127.0.0.1", "--port", "0", "--no-dashboard", "--scheduler-file", str(told)),
    )
    wait_for(told.exists, "the scheduler")
    workers = [
        start(
            "distributed.cli.dask_worker",
            *("--scheduler-file", str(told), "--nthreads", "1", "--no-nanny", "--no-dashboard"),
        )
        for _ in range(2)
    ]
    from distributed import Client

    with Client(scheduler_file=str(told)) as client:
        client.wait_for_workers(2, timeout=PATIENCE)
        address = client.scheduler.address
    yield address, [*workers, scheduler]
    for process in reversed(started):
        process.kill()
        process.wait()


def start_program(folder, output, *arguments, environment=None):
    return subprocess.Popen(
        [sys.executable, str(PROGRAM), str(folder), str(output), *arguments],
        env={**os.environ, **(environment or {})},
        stderr=subprocess.PIPE,
        text=True,
    )


def expect_every_picture_once(output, expected):
    with open(output, newline="", **ENCODING) as file:
        rows = list(csv.reader(file))
    assert ",".join(rows[0]) == "image,id,row,col,x,y,kind,cxx,cxy,cyy"
    found = {}
    order = []
    for row in rows[1:]:
        found.setdefault(row[0], []).append(row[1:7])
        if not order or order[-1] != row[0]:
            order.append(row[0])
    assert sorted(order) == sorted(expected)  # each in one piece
    for name, wanted in expected.items():
        assert found[name] == wanted, name


def test_nothing_is_lost_or_twice_when_a_worker_ends(pictures, cluster, tmp_path):
    folder, expected = pictures
    address, workers = cluster
    output = tmp_path / "points.csv"
    program = start_program(folder, output, "--scheduler", address)
    part = tmp_path / "points.csv.part"
    wait_for(lambda: count_pictures(part) >= 5, "the first pictures")
    workers[0].send_signal(signal.SIGKILL)
    workers[0].wait()
    assert count_pictures(part) < len(expected) / 2, "the run was over too soon"
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 1, errors  # of the broken picture
    assert "broken.bmp: it cannot be read as a picture" in errors
    assert f"{len(expected)} pictures done, 1 failed" in errors
    assert workers[1].poll() is None
    assert not part.exists()
    expect_every_picture_once(output, expected)


def test_a_run_that_was_ended_is_resumed(pictures, cluster, tmp_path):
    folder, expected = pictures
    address, _ = cluster
    output = tmp_path / "points.csv"
    program = start_program(folder, output, "--scheduler", address)
    part = tmp_path / "points.csv.part"
    wait_for(lambda: count_pictures(part) >= 5, "the first pictures")
    program.kill()
    program.communicate()
    assert not output.exists()
    with open(part, "a", encoding="utf-8") as file:
        file.write("1-3.bm")  # as if it had been ended within a line

    again = start_program(folder, output, "--scheduler", address)
    _, errors = again.communicate(timeout=PATIENCE)
    assert again.returncode == 2 and "--resume goes on with it" in errors

    resumed = start_program(folder, output, "--scheduler", address, "--resume")
    _, errors = resumed.communicate(timeout=PATIENCE)
    assert resumed.returncode in (0, 1), errors
    assert " 0 were there" not in errors
    expect_every_picture_once(output, expected)

    nothing = start_program(folder, output, "--scheduler", address, "--resume")
    _, errors = nothing.communicate(timeout=PATIENCE)
    assert nothing.returncode == 0 and "0 pictures done" in errors
    expect_every_picture_once(output, expected)


def test_a_lost_connection_fails_no_picture(pictures, cluster, tmp_path):
    folder, expected = pictures
    address, (*_, scheduler) = cluster
    output = tmp_path / "points.csv"
    program = start_program(
        folder,
        output,
        *("--scheduler", address),
        environment={"DASK_DISTRIBUTED__COMM__TIMEOUTS__CONNECT": "2s"},
    )
    part = tmp_path / "points.csv.part"
    wait_for(lambda: count_pictures(part) >= 5, "the first pictures")
    scheduler.kill()
    scheduler.wait()
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 1, errors
    assert f"--resume goes on with {part}" in errors
    assert not output.exists()
    with open(part, newline="", encoding="utf-8") as file:
        failed = {row[0] for row in csv.reader(file) if row[6] == "failed"}
    assert failed <= {"broken.bmp"}

    resumed = start_program(folder, output, "--workers", "2", "--resume")
    _, errors = resumed.communicate(timeout=PATIENCE)
    assert resumed.returncode in (0, 1) and " 0 were there" not in errors, errors
    expect_every_picture_once(output, expected)


@pytest.fixture
def one_picture(pictures, tmp_path):
    folder = tmp_path / "one"
    folder.mkdir()
    shutil.copy(pictures[0] / "0-0.bmp", folder)
    return folder


def test_names_may_be_any_and_come_back(pictures, one_picture, tmp_path):
    names = [os.fsdecode(b"caf\xe9.bmp"), 'two\nlines, "quoted".bmp', "back\r.bmp", "tail\n9.bmp"]
    for name in names:
        shutil.copy(one_picture / "0-0.bmp", one_picture / name)
    expected = {name: pictures[1]["0-0.bmp"] for name in ["0-0.bmp", *names]}
    output = tmp_path / "points.csv"
    program = start_program(one_picture, output, "--workers", "1")
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 0, errors
    expect_every_picture_once(output, expected)

    # As if it had been ended within a name, in the second row of the picture.
    part = tmp_path / "points.csv.part"
    with open(output, newline="", **ENCODING) as file:
        rows = list(csv.reader(file))
    last = [row for row in rows if row[0] == names[1]]
    output.unlink()
    with open(part, "w", newline="", **ENCODING) as file:
        writer = csv.writer(file)
        writer.writerows([row for row in rows if row[0] != names[1]])
        writer.writerow(last[0])
        file.write('"two\n')
    resumed = start_program(one_picture, output, "--workers", "1", "--resume")
    _, errors = resumed.communicate(timeout=PATIENCE)
    assert resumed.returncode == 0 and "1 pictures done, 0 failed, 4 were there" in errors, errors
    expect_every_picture_once(output, expected)


def test_pictures_are_not_turned(one_picture, tmp_path):
    image = cv2.imread(str(one_picture / "0-0.bmp"), cv2.IMREAD_GRAYSCALE)
    (one_picture / "0-0.bmp").unlink()
    _, data = cv2.imencode(".jpg", image)
    data = data.tobytes()
    # Exif: one entry, orientation (0x0112) 6, a quarter turn.
    tiff = bytes.fromhex("49492a0008000000 0100 1201030001000000 06000000 00000000")
    exif = b"Exif\0\0" + tiff
    segment = b"\xff\xe1" + (len(exif) + 2).to_bytes(2, "big") + exif
    turned = one_picture / "turned.jpg"
    turned.write_bytes(data[:2] + segment + data[2:])
    assert cv2.imread(str(turned), cv2.IMREAD_GRAYSCALE).shape == image.shape[::-1]

    output = tmp_path / "points.csv"
    program = start_program(one_picture, output, "--workers", "1")
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 0, errors
    marks = quorvex.detect_precise(cv2.imdecode(np.frombuffer(data, np.uint8), 0))
    rows = [
        [str(m["id"]), str(m["row"]), str(m["col"]), f"{m['x']:.9g}", f"{m['y']:.9g}", "measured"]
        for m in marks
    ]
    expect_every_picture_once(output, {"turned.jpg": rows})


def other_module(tmp_path, text):
    """An environment in which the workers find another module quorvex."""
    place = tmp_path / "modules"
    place.mkdir()
    (place / "quorvex.py").write_text(text)
    return {"PYTHONPATH": str(place), "DASK_DISTRIBUTED__SCHEDULER__ALLOWED_FAILURES": "0"}


def test_a_worker_that_lacks_a_module_ends_the_run(pictures, one_picture, tmp_path):
    output = tmp_path / "points.csv"
    without = other_module(tmp_path, "raise ImportError('no such module')")
    program = start_program(one_picture, output, "--workers", "1", environment=without)
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 1 and "a worker failed: ImportError('no such module')" in errors
    assert not output.exists()

    resumed = start_program(one_picture, output, "--workers", "1", "--resume")
    _, errors = resumed.communicate(timeout=PATIENCE)
    assert resumed.returncode == 0, errors
    expect_every_picture_once(output, {"0-0.bmp": pictures[1]["0-0.bmp"]})


def test_a_picture_that_ends_its_workers_has_failed(one_picture, tmp_path):
    output = tmp_path / "points.csv"
    ends = other_module(tmp_path, "import os\ndef detect_precise(image): os._exit(1)\n")
    program = start_program(one_picture, output, "--workers", "1", environment=ends)
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 1 and "0-0.bmp: every worker that took it was lost" in errors
    expect_every_picture_once(output, {"0-0.bmp": [["", "", "", "", "", "failed"]]})


def test_bad_usage_says_so(one_picture, tmp_path):
    (tmp_path / "empty").mkdir()
    for arguments, says in [
        (["missing", "out.csv", "--workers", "1"], "missing is no folder"),
        (["empty", "out.csv", "--workers", "1"], "holds no picture"),
        (["empty", "out.csv", "--workers", "0"], "--workers: expected 1 or more, given 0"),
        (["empty", "out.csv"], "--workers --scheduler is required"),
        (["one", "out.csv", "--scheduler", "tcp://127.0.0.1:1"], "Timed out trying to connect"),
        (["one", "out.csv", "--scheduler", "nowhere://"], "nowhere"),
    ]:
        done = subprocess.run(
            [sys.executable, str(PROGRAM), *arguments],
            cwd=tmp_path,
            env={**os.environ, "DASK_DISTRIBUTED__COMM__TIMEOUTS__CONNECT": "1s"},
            capture_output=True,
            text=True,
        )
        assert done.returncode == 2 and says in done.stderr, done.stderr
        assert "Traceback" not in done.stderr
    assert list(tmp_path.glob("out.csv*")) == []


def test_a_cluster_of_this_machine_does_as_well(pictures, tmp_path):
    folder, expected = pictures
    few = tmp_path / "few"
    few.mkdir()
    for name in ("0-0.bmp", "1-0.bmp"):
        shutil.copy(folder / name, few)
    output = tmp_path / "points.csv"
    program = start_program(few, output, "--workers", "2")
    _, errors = program.communicate(timeout=PATIENCE)
    assert program.returncode == 0, errors
    expect_every_picture_once(output, {name: expected[name] for name in ("0-0.bmp", "1-0.bmp")})
