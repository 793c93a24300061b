import pickle
import threading
import time

import numpy as np
import pytest
from conftest import detect_by_command

import quorvex


def expect_commands_points(points, rows):
    assert len(points) == len(rows)
    for point, row in zip(points, rows):
        assert point["id"] == int(row["id"])
        assert (point["row"], point["col"]) == (int(row["row"]), int(row["col"]))
        assert f"{float(point['x']):.9g}" == row["x"]
        assert f"{float(point['y']):.9g}" == row["y"]


def test_gives_the_commands_points(easy, easy_path):
    points = quorvex.detect(easy)
    assert points.dtype == quorvex.POINT_DTYPE
    assert points.dtype.names == ("id", "row", "col", "x", "y")
    assert points.shape == (48,)
    expect_commands_points(points, detect_by_command(easy_path))


def test_parameters_have_names_and_an_order(easy, easy_path):
    assert np.array_equal(
        quorvex.detect(easy, 20, 20, 300, None),
        quorvex.detect(image=easy, row_span=20, column_span=20, row_steps=300, diagnostics=None),
    )
    few = quorvex.detect(easy, 0, 1)
    assert len(few) == 32
    expect_commands_points(
        few, detect_by_command(easy_path, "--row-span", "0", "--column-span", "1")
    )
    assert len(quorvex.detect(easy, row_steps=130)) == 2


@pytest.mark.parametrize(
    "lay_out",
    [
        np.ascontiguousarray,
        np.asfortranarray,
        lambda image: np.repeat(image, 2, axis=1)[:, ::2],
        lambda image: np.repeat(image, 2, axis=0)[::2],
        lambda image: np.ascontiguousarray(image[:, ::-1])[:, ::-1],
    ],
    ids=["rows", "columns", "gaps in rows", "gaps between rows", "from the right"],
)
def test_takes_any_strides(easy, lay_out):
    image = lay_out(easy)
    assert np.array_equal(image, easy)
    assert np.array_equal(quorvex.detect(image), quorvex.detect(easy))
    assert np.array_equal(quorvex.detect_precise(image), quorvex.detect_precise(easy))


def test_leaves_the_image_alone(easy):
    image = easy.copy()
    image.flags.writeable = False
    quorvex.detect(image)
    assert np.array_equal(image, easy)


def test_odd_sizes_are_padded_as_by_the_command(easy):
    odd = easy[:-1, :-2]
    points = quorvex.detect(odd)
    assert len(points) == 48
    padded = np.pad(odd, ((0, 1), (0, 2)), mode="edge")
    assert np.array_equal(points, quorvex.detect(padded))
    with pytest.raises(ValueError, match="image: expected .* multiples of 4, given 1598 x 1199"):
        quorvex.detect(odd, pad=False)


def test_keeps_diagnostics_where_told_and_nowhere_else(easy, empty_folder, tmp_path):
    quorvex.detect(easy)
    assert list(empty_folder.iterdir()) == []
    folder = tmp_path / "deep" / "diagnostics é"
    quorvex.detect(easy, diagnostics=folder)
    names = sorted(path.name for path in folder.iterdir())
    assert "Mask.bmp" in names and "Row.txt" in names and "sdf.txt" not in names
    assert list(empty_folder.iterdir()) == []
    (folder / "sdf.txt").write_text("of an earlier detection")
    (folder / "mine.txt").write_text("stays")
    quorvex.detect(easy, diagnostics=str(folder))
    assert sorted(path.name for path in folder.iterdir()) == sorted([*names, "mine.txt"])


def test_a_folder_that_cannot_be_made_is_an_os_error(easy, tmp_path):
    (tmp_path / "file").write_text("")
    with pytest.raises(OSError, match="file"):
        quorvex.detect(easy, diagnostics=tmp_path / "file" / "folder")


def test_a_folder_that_cannot_be_written_is_named_before_the_detection(easy, monkeypatch):
    monkeypatch.setattr(quorvex._native, "detect", lambda *_: pytest.fail("it has begun"))
    # Nobody can make a file there, root neither.
    with pytest.raises(OSError, match="diagnostics: .* can be written, given '/proc/self'"):
        quorvex.detect(easy, diagnostics="/proc/self")


def test_diagnostics_that_are_taken_away_meanwhile_do_no_harm(easy, tmp_path, monkeypatch):
    detect = quorvex._native.detect

    def detect_and_lose(*arguments):
        points = detect(*arguments)
        for path in tmp_path.glob("*.bmp"):
            path.unlink()
        return points

    monkeypatch.setattr(quorvex._native, "detect", detect_and_lose)
    assert len(quorvex.detect(easy, diagnostics=tmp_path)) == 48


@pytest.mark.parametrize("image", [None, [[1, 2], [3, 4]], "board.bmp", np.uint8(3)])
def test_what_is_no_array_is_named(image):
    for function in (quorvex.detect, quorvex.detect_precise):
        with pytest.raises(TypeError, match="image: expected .* uint8, given"):
            function(image)


@pytest.mark.parametrize(
    "shape, dtype, given",
    [
        ((64, 64), np.float32, "float32"),
        ((64, 64), np.uint16, "uint16"),
        ((64, 64), np.int8, "int8"),
        ((64, 64, 3), np.uint8, r"\(64, 64, 3\)"),
        ((64,), np.uint8, r"\(64,\)"),
    ],
)
def test_arrays_of_other_types_and_shapes_are_named(shape, dtype, given):
    for function in (quorvex.detect, quorvex.detect_precise):
        with pytest.raises(TypeError, match=f"image: expected .* given .*{given}"):
            function(np.zeros(shape, dtype))


def test_sizes_are_named():
    with pytest.raises(ValueError, match="image: expected 4 x 4 pixels or more, given 8 x 3"):
        quorvex.detect(np.zeros((3, 8), np.uint8))
    with pytest.raises(ValueError, match="image: expected 4 x 4 pixels or more, given 0 x 0"):
        quorvex.detect(np.zeros((0, 0), np.uint8))
    with pytest.raises(ValueError, match="image: expected 16 x 16 pixels or more, given 16 x 15"):
        quorvex.detect_precise(np.zeros((15, 16), np.uint8))


@pytest.mark.parametrize(
    "name, value, message",
    [
        ("row_span", -1, "row_span: expected 0 to 1000, given -1"),
        ("column_span", 1001, "column_span: expected 0 to 1000, given 1001"),
        ("row_steps", 0, "row_steps: expected 1 to 32768, given 0"),
        ("row_steps", 2**70, "row_steps: expected 1 to 32768, given"),
    ],
)
def test_numbers_out_of_range_are_named(easy, name, value, message):
    with pytest.raises(ValueError, match=message):
        quorvex.detect(easy, **{name: value})


@pytest.mark.parametrize("name", ["row_span", "column_span", "row_steps"])
def test_what_is_no_int_is_named(easy, name):
    for value in (1.5, "20", None, int, np.array([1, 2])):
        with pytest.raises(TypeError, match=f"{name}: expected an int, given"):
            quorvex.detect(easy, **{name: value})
    assert len(quorvex.detect(easy, **{name: np.int16(300)})) == 48
    with pytest.raises(TypeError, match="pad: expected True or False, given 'no'"):
        quorvex.detect(easy, pad="no")
    with pytest.raises(TypeError, match="diagnostics: expected None or the name of a folder"):
        quorvex.detect(easy, diagnostics=3)
    with pytest.raises(ValueError, match="diagnostics: expected the name of a folder, given ''"):
        quorvex.detect(easy, diagnostics="")


def test_a_picture_without_a_target_says_why(empty_folder):
    for image in (np.zeros((64, 64), np.uint8), np.full((64, 64), 255, np.uint8)):
        with pytest.raises(quorvex.DetectionError) as caught:
            quorvex.detect(image)
        assert isinstance(caught.value, ValueError)
        assert caught.value.stage == "grid"
        assert caught.value.reason in str(caught.value)
    assert list(empty_folder.iterdir()) == []


def test_an_error_travels_between_processes():
    error = pickle.loads(pickle.dumps(quorvex.DetectionError("why", "seed")))
    assert (error.reason, error.stage) == ("why", "seed")


def files_of(folder):
    return {path.name: path.read_bytes() for path in folder.iterdir()}


def test_threads_detect_at_the_same_time(easy, tmp_path):
    # A different picture for each thread, as seen in every file that it keeps.
    images = [np.roll(easy, 8 * name, axis=(0, 1)) for name in range(4)]
    expected = [
        quorvex.detect(image, diagnostics=tmp_path / f"alone {name}")
        for name, image in enumerate(images)
    ]
    results = {}

    def detect(name):
        results[name] = quorvex.detect(images[name], diagnostics=tmp_path / f"thread {name}")

    threads = [threading.Thread(target=detect, args=(name,)) for name in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    for name in range(4):
        assert np.array_equal(results[name], expected[name])
        kept = files_of(tmp_path / f"thread {name}")
        assert kept == files_of(tmp_path / f"alone {name}")
        assert kept["Mask.bmp"] != files_of(tmp_path / f"alone {(name + 1) % 4}")["Mask.bmp"]


def stands_still(function):
    """For which part of a call in one thread another thread of Python stands still, at a stretch."""
    is_done = threading.Event()

    def call():
        function()
        is_done.set()

    thread = threading.Thread(target=call)
    begin = last = time.perf_counter()
    longest = 0.0
    thread.start()
    while not is_done.is_set():
        now = time.perf_counter()
        longest = max(longest, now - last)
        last = now
    end = time.perf_counter()
    thread.join()
    return max(longest, end - last) / (end - begin)


@pytest.mark.parametrize("function", [quorvex.detect, quorvex.detect_precise])
def test_the_interpreter_runs_on_meanwhile(easy, function):
    # With the lock held, the other thread would stand still nearly all the time. A busy machine may
    # halt it as well, but not every time.
    assert min(stands_still(lambda: function(easy)) for _ in range(5)) < 0.5


def test_the_measure_sees_a_held_lock():
    # One call of C code that keeps the lock.
    assert min(stands_still(lambda: sum(range(5_000_000))) for _ in range(3)) > 0.5
