"""Calibration points of printed cross-mark targets in fisheye images.

Images are two-dimensional numpy arrays of uint8 in the usual order: shape (height, width), row 0 at
the top. Positions are pixels: x runs to the right, y down, and whole numbers are the middles of
pixels. Rows and columns of a grid count from 0 at the top left.

Two detections find the marks of a target: `detect`, the library's own, and `detect_precise`, which
measures every visible mark directly, with its covariance. Both let go of the interpreter's lock, so
that several threads detect at the same time. Lists of points are structured arrays; the functions
that edit them return new ones and leave their arguments alone.

Wrong arguments raise TypeError or ValueError with the argument's name, what was expected and what
was given; a picture in which no target is found raises DetectionError.
"""

import enum
import operator
import os
import tempfile
from typing import Any, Dict, Literal, Optional, SupportsFloat, SupportsIndex, Tuple, Union, overload

import numpy as np

from . import _native

__all__ = [
    "MARK_DTYPE",
    "POINT_DTYPE",
    "REFINED_DTYPE",
    "DetectionError",
    "Verdict",
    "add",
    "alter",
    "delete",
    "delete_at",
    "detect",
    "detect_precise",
    "query",
    "rearrange_left",
    "rearrange_right",
    "refine_marks",
    "renumber",
]

__version__: str = _native.version

#: Of the points of `detect` and of the editing functions: id, row, col (int32), x, y (float32,
#: pixels). id is row * (number of columns) + col + 1; id, row and col are -1 for a point without a
#: place in the grid.
POINT_DTYPE: np.dtype = _native.point_dtype

#: Of the marks of `detect_precise`: id, row, col (int32), x, y (float64, pixels), cxx, cxy, cyy
#: (float64, covariance of x and y, square pixels), verdict (uint8, a `Verdict`).
MARK_DTYPE: np.dtype = _native.mark_dtype

#: Of the points of `refine_marks`: x, y, cxx, cxy, cyy (float64, as above), refined (bool), reason
#: (str: why a point is not refined; empty when it is).
REFINED_DTYPE: np.dtype = np.dtype(
    [(name, _native.refined_dtype[name]) for name in ("x", "y", "cxx", "cxy", "cyy", "refined")]
    + [("reason", "U96")]
)

_LARGEST_SPAN = 1000  # rows or columns
_LARGEST_ROW_STEPS = 32768  # pixels
_LARGEST_SIDE = 2**31 - 4  # pixels
_LEAST_PRECISE_SIDE = 16  # pixels
_MOST_BOARD_LINES = 1000  # rows or columns
_COLOURS = {"either": 0, "dark": 1, "light": 2}
_INT32 = np.iinfo(np.int32)

_DIAGNOSTICS = (
    "ProImage.bmp", "Binarization.bmp", "Dilation.bmp", "Contour.bmp", "SRegion.bmp", "Mask.bmp",
    "Region.bmp", "Sobel.bmp", "Eliminate.bmp", "CrossMarkRegion.bmp", "Sauvola.bmp", "Thining.bmp",
    "Lines.bmp", "LineSegment.bmp", "Row.txt", "Col.txt", "sdf.txt",
)  # fmt: skip


class DetectionError(ValueError):
    """No target was found in an image.

    `reason` says why, in words; `stage` where the search ended: "grid" of `detect`; "seed",
    "camera", "strokes", "check" or "size" of `detect_precise`.
    """

    def __init__(self, reason: str, stage: str) -> None:
        super().__init__(reason, stage)
        self.reason = reason
        self.stage = stage

    def __str__(self) -> str:
        return f"no target was found: {self.reason}"


class Verdict(enum.IntEnum):
    """How a mark of `detect_precise` was come by."""

    MEASURED = 0  #: on its strokes
    DOUBTFUL = 1  #: measured, but on two arms only, or away from what the other marks predict
    PREDICTED = 2  #: not seen; where the other marks say that it would be


def _describe(value: object) -> str:
    if isinstance(value, np.ndarray):
        return f"an array of shape {value.shape} and type {value.dtype}"
    return f"{value!r} ({type(value).__name__})"


def _require_image(image: object, least_side: int) -> np.ndarray:
    if not isinstance(image, np.ndarray) or image.ndim != 2 or image.dtype != np.uint8:
        raise TypeError(
            f"image: expected a two-dimensional numpy array of uint8, given {_describe(image)}"
        )
    height, width = image.shape
    if not (least_side <= width <= _LARGEST_SIDE and least_side <= height <= _LARGEST_SIDE):
        raise ValueError(
            f"image: expected {least_side} x {least_side} pixels or more, given {width} x {height}"
        )
    return image


def _require_int(name: str, value: object, least: int, most: int) -> int:
    try:
        number = operator.index(value)  # type: ignore[arg-type]
    except TypeError:
        raise TypeError(f"{name}: expected an int, given {_describe(value)}") from None
    if not least <= number <= most:
        raise ValueError(f"{name}: expected {least} to {most}, given {number}")
    return number


def _require_float(name: str, value: object) -> float:
    try:
        if isinstance(value, (str, bytes, bytearray)):  # float() would read them
            raise TypeError
        number = float(value)  # type: ignore[arg-type]
    except (TypeError, ValueError):
        raise TypeError(f"{name}: expected a number of pixels, given {_describe(value)}") from None
    except OverflowError:
        raise ValueError(
            f"{name}: expected a finite number of pixels, given one too large for a float"
        ) from None
    if not abs(number) <= np.finfo(np.float32).max:
        raise ValueError(f"{name}: expected a finite number of pixels, given {number}")
    return number


def _require_bool(name: str, value: object) -> bool:
    if not isinstance(value, (bool, np.bool_)):
        raise TypeError(f"{name}: expected True or False, given {_describe(value)}")
    return bool(value)


def _require_points(points: object) -> np.ndarray:
    names = POINT_DTYPE.names or ()
    if (
        not isinstance(points, np.ndarray)
        or points.ndim != 1
        or not set(names) <= set(points.dtype.names or ())
    ):
        raise TypeError(
            "points: expected a one-dimensional structured array with the fields "
            f"{', '.join(names)}, given {_describe(points)}"
        )
    copy = np.empty(points.shape, POINT_DTYPE)
    for name in names:
        copy[name] = _require_field(name, points[name], POINT_DTYPE[name])
    return copy


def _require_field(name: str, values: np.ndarray, dtype: np.dtype) -> np.ndarray:
    """The values, which the type holds: none that is cut, beyond its range or not a number."""
    is_whole = dtype.kind == "i"
    if values.ndim != 1 or values.dtype.kind not in ("iu" if is_whole else "iuf"):
        raise TypeError(
            f'points["{name}"]: expected {"integers" if is_whole else "numbers"}, '
            f"given {_describe(values)}"
        )
    limits = np.iinfo(dtype) if is_whole else np.finfo(dtype)
    wrong = values[~((values >= limits.min) & (values <= limits.max))]
    if len(wrong) > 0:
        expected = f"{limits.min} to {limits.max}" if is_whole else "finite numbers of pixels"
        raise ValueError(f'points["{name}"]: expected {expected}, given {wrong[0]}')
    return values


def _require_folder(folder: "Union[str, os.PathLike[str], None]") -> bytes:
    """The folder's name, made where it is missing and without earlier diagnostics; b"" for None.

    Whether it can be written is tried before the detection, since what lies in it afterwards may
    have been taken away by then.
    """
    if folder is None:
        return b""
    try:
        name = os.fsencode(folder)
    except TypeError:
        raise TypeError(
            f"diagnostics: expected None or the name of a folder, given {_describe(folder)}"
        ) from None
    if name == b"" or b"\0" in name:
        raise ValueError(f"diagnostics: expected the name of a folder, given {folder!r}")
    os.makedirs(name, exist_ok=True)
    for diagnostic in _DIAGNOSTICS:
        try:
            os.remove(os.path.join(name, os.fsencode(diagnostic)))
        except FileNotFoundError:
            pass
    try:
        tempfile.TemporaryFile(dir=name).close()
    except OSError as error:
        raise OSError(
            f"diagnostics: expected a folder that can be written, given {os.fspath(folder)!r}"
        ) from error
    return name


def detect(
    image: np.ndarray,
    row_span: SupportsIndex = 20,
    column_span: SupportsIndex = 20,
    row_steps: SupportsIndex = 300,
    diagnostics: "Union[str, os.PathLike[str], None]" = None,
    *,
    pad: bool = True,
) -> np.ndarray:
    """Finds the points of a target by the library's detection, as the command `quorvex detect`.

    The target is bright (grey level 80 and above) around the image's centre; its surroundings and
    its marks are darker.

    image        uint8, shape (height, width), 4 x 4 pixels or more, with any strides. Copied once.
    row_span     rows looked for beyond the centre row, 0 to 1000.
    column_span  the same for columns.
    row_steps    pixels that a row may run from one mark to the next, 1 to 32768; at least the
                 largest spacing + 10, and above 121.
    diagnostics  a folder for the pictures and lists of every stage, which is made where it is
                 missing; what an earlier detection left there is replaced, so detections at the
                 same time need one each. None keeps nothing.
    pad          widths and heights that are no multiples of 4 are grown to the next one in the
                 copy, by repeating the last column and row. False refuses them.

    Returns an array of `POINT_DTYPE`, shape (points,), ordered by id. Crosses that were missed are
    filled in. Raises TypeError and ValueError for wrong arguments, DetectionError when no target is
    found, OSError when the folder cannot be written, MemoryError.
    """
    pixels = _require_image(image, 4)
    height, width = pixels.shape
    if not _require_bool("pad", pad) and (width % 4 != 0 or height % 4 != 0):
        raise ValueError(
            f"image: expected a width and a height that are multiples of 4, given {width} x {height}"
        )
    spans = (
        _require_int("row_span", row_span, 0, _LARGEST_SPAN),
        _require_int("column_span", column_span, 0, _LARGEST_SPAN),
        _require_int("row_steps", row_steps, 1, _LARGEST_ROW_STEPS),
    )
    folder = _require_folder(diagnostics)
    points = _native.detect(pixels, *spans, folder)
    if points is None:
        raise DetectionError(
            "no grid of marks around the image's centre; the pictures that diagnostics=FOLDER "
            "keeps show at which stage it was lost",
            "grid",
        )
    if len(points) == 0:
        raise DetectionError("no point of the grid lies within the image", "grid")
    return points


@overload
def detect_precise(
    image: np.ndarray,
    colour: str = "either",
    predict_missing: bool = False,
    continuous_lines: bool = False,
    board: Optional[Tuple[SupportsIndex, SupportsIndex]] = None,
    return_facts: Literal[False] = False,
) -> np.ndarray: ...


@overload
def detect_precise(
    image: np.ndarray,
    colour: str = "either",
    predict_missing: bool = False,
    continuous_lines: bool = False,
    board: Optional[Tuple[SupportsIndex, SupportsIndex]] = None,
    *,
    return_facts: Literal[True],
) -> Tuple[np.ndarray, Dict[str, Any]]: ...


def detect_precise(
    image,
    colour="either",
    predict_missing=False,
    continuous_lines=False,
    board=None,
    return_facts=False,
):
    """Finds every visible mark of one target and measures it to some thousandths of a pixel.

    image             uint8, shape (height, width), 16 x 16 pixels or more. Copied once where pixels
                      of a row do not lie side by side, otherwise not at all.
    colour            "dark" marks on a bright board, "light" marks on a dark one, or "either".
    predict_missing   also gives the places within the found rows and columns where no mark was
                      measured; of the whole board where its labels are fixed.
    continuous_lines  the board's strokes may run through from crossing to crossing.
    board             (rows, columns) of the whole board as it stands in the picture, 1 to 1000
                      each. Labels are then the board's where facts["has_fixed_rows"] and
                      facts["has_fixed_columns"] say so; otherwise they count from the first row and
                      column found.
    return_facts      also returns what was learnt of the picture.

    Returns an array of `MARK_DTYPE`, shape (marks,), ordered by row, then by column; with
    return_facts a pair of that and a dict: noise (grey levels), stroke_width, pitch, blur (pixels),
    arm_length (pitches), has_light_marks, has_fixed_rows, has_fixed_columns (bool), camera (a dict:
    rotation, translation, focal_length, k1, k2, k3, centre_x, centre_y, aspect, residual; the
    radial model of Kannala and Brandt, 2006, fitted to this one picture, which does not make it a
    calibration). Raises TypeError and ValueError for wrong arguments, DetectionError when no target
    is found, MemoryError.
    """
    pixels = _require_image(image, _LEAST_PRECISE_SIDE)
    size = _require_board(board)
    gives_facts = _require_bool("return_facts", return_facts)
    marks, facts, stage, reason = _native.detect_precise(
        pixels,
        _require_colour(colour),
        _require_bool("predict_missing", predict_missing),
        _require_bool("continuous_lines", continuous_lines),
        size,
    )
    if len(marks) == 0:
        raise DetectionError(reason, stage)
    return (marks, facts) if gives_facts else marks


def _require_colour(colour: object) -> int:
    if not isinstance(colour, str):
        raise TypeError(f"colour: expected a str, given {_describe(colour)}")
    if colour not in _COLOURS:
        raise ValueError(f"colour: expected 'either', 'dark' or 'light', given {colour!r}")
    return _COLOURS[colour]


def _require_board(board: object) -> Tuple[int, int]:
    if board is None:
        return (0, 0)
    if not isinstance(board, (tuple, list)) or len(board) != 2:
        raise TypeError(f"board: expected None or (rows, columns), given {_describe(board)}")
    return (
        _require_int("board[0]", board[0], 1, _MOST_BOARD_LINES),
        _require_int("board[1]", board[1], 1, _MOST_BOARD_LINES),
    )


def refine_marks(image: np.ndarray, positions: np.ndarray, colour: str = "dark") -> np.ndarray:
    """Measures points that lie within about 4 pixels of a mark, each by itself.

    image      uint8, shape (height, width), 16 x 16 pixels or more.
    positions  an array with the fields x and y, shape (points,), or of numbers, shape (points, 2):
               x and y in pixels.
    colour     of the marks: "dark" or "light"; "either" looks for dark ones.

    Returns an array of `REFINED_DTYPE`, shape (points,), in the order of the positions. A point
    that is no mark stays where it was, refined is False and reason says why.
    """
    pixels = _require_image(image, _LEAST_PRECISE_SIDE)
    found, reasons = _native.refine_marks(
        pixels, _require_positions(positions).tolist(), _require_colour(colour)
    )
    refined = np.empty(found.shape, REFINED_DTYPE)
    for name in found.dtype.names:
        refined[name] = found[name]
    refined["reason"] = reasons
    return refined


def _require_positions(positions: object) -> np.ndarray:
    if isinstance(positions, np.ndarray) and {"x", "y"} <= set(positions.dtype.names or ()):
        positions = np.stack([positions["x"], positions["y"]], axis=-1)
    try:
        array = np.asarray(positions, dtype=np.float64)
    except (TypeError, ValueError):
        array = np.empty(0)
    if array.ndim != 2 or array.shape[1] != 2:
        raise TypeError(
            "positions: expected an array with the fields x and y, or numbers of shape (points, 2), "
            f"given {_describe(positions)}"
        )
    if not np.isfinite(array).all():
        raise ValueError("positions: expected finite numbers of pixels, given others among them")
    return array


def _require_found(points: Optional[np.ndarray], point_id: int) -> np.ndarray:
    if points is None:
        raise ValueError(f"id: expected the id of a point in the list, given {point_id}")
    return points


def _require_id(point_id: object) -> int:
    return _require_int("id", point_id, int(_INT32.min), int(_INT32.max))


def query(points: np.ndarray, id: SupportsIndex) -> np.void:
    """The first point with that id, a record of `POINT_DTYPE`. Raises ValueError when none has it."""
    number = _require_id(id)
    return _require_found(_native.query(_require_points(points), number), number)[0]


def add(points: np.ndarray, x: SupportsFloat, y: SupportsFloat) -> np.ndarray:
    """The points and one more at (x, y), in pixels, whose id, row and col are -1."""
    return _native.add(_require_points(points), _require_float("x", x), _require_float("y", y))


def delete(points: np.ndarray, id: SupportsIndex) -> np.ndarray:
    """The points without those of that id. Raises ValueError when none has it."""
    number = _require_id(id)
    return _require_found(_native.delete(_require_points(points), number), number)


def delete_at(points: np.ndarray, x: SupportsFloat, y: SupportsFloat) -> np.ndarray:
    """The points without those less than 9 pixels from (x, y) both in x and in y.

    Raises ValueError when there is none.
    """
    place = (_require_float("x", x), _require_float("y", y))
    left = _native.delete_at(_require_points(points), *place)
    if left is None:
        raise ValueError(
            f"x, y: expected less than 9 pixels in x and in y from a point, given {place}"
        )
    return left


def alter(
    points: np.ndarray,
    id: SupportsIndex,
    row: SupportsIndex,
    col: SupportsIndex,
    x: SupportsFloat,
    y: SupportsFloat,
) -> np.ndarray:
    """The points, of which the first with that id has another row, col, x and y (pixels).

    Raises ValueError when none has the id.
    """
    number = _require_id(id)
    changed = _native.alter(
        _require_points(points),
        number,
        _require_int("row", row, int(_INT32.min), int(_INT32.max)),
        _require_int("col", col, int(_INT32.min), int(_INT32.max)),
        _require_float("x", x),
        _require_float("y", y),
    )
    return _require_found(changed, number)


def renumber(points: np.ndarray, rows: SupportsIndex, columns: SupportsIndex) -> np.ndarray:
    """Numbers a complete grid of rows x columns points, 1 to 32768 each, by its geometry alone.

    Row 0 has the smallest y, column 0 the smallest x; the result is ordered column by column. The
    grid's spacing must shrink from its middle outwards, as in a fisheye image; ValueError where it
    does not, or where the points are of another number.
    """
    grid = _require_points(points)
    size = (
        _require_int("rows", rows, 1, _native.most_grid_lines),
        _require_int("columns", columns, 1, _native.most_grid_lines),
    )
    if len(grid) != size[0] * size[1]:
        raise ValueError(
            f"points: expected {size[0]} x {size[1]} points, {size[0] * size[1]} in all, "
            f"given {len(grid)}"
        )
    numbered = _native.renumber(grid, *size)
    if numbered is None:
        raise ValueError(
            f"points: expected a grid of {size[0]} x {size[1]} points whose spacing shrinks from "
            f"its middle outwards, given {len(grid)} points that form none"
        )
    return numbered


def _rearrange(points: object, is_left: bool, columns: Optional[SupportsIndex]) -> np.ndarray:
    grid = _require_points(points)
    most = _native.most_grid_lines
    if columns is None:
        columns = int(np.clip(grid["col"].max(initial=0), 0, most - 1)) + 1
    count = _require_int("columns", columns, 1, most)
    rearranged = _native.rearrange(grid, is_left, count)
    if rearranged is None:
        raise ValueError(
            f"points: expected points with a col from 0 to {count - 1}, given none of {len(grid)}"
        )
    return rearranged


def rearrange_left(points: np.ndarray, columns: Optional[SupportsIndex] = None) -> np.ndarray:
    """Renumbers a grid for the left camera: column k becomes row k, from the largest y up.

    columns is how many columns the grid has, 1 to 32768; None takes the largest col + 1. The point
    with the largest y of a column gets col 0; id = row * columns + col + 1. Points of other columns
    are dropped; ValueError when no point would be left.
    """
    return _rearrange(points, True, columns)


def rearrange_right(points: np.ndarray, columns: Optional[SupportsIndex] = None) -> np.ndarray:
    """The same for the right camera.

    Where a column does not hold as many points as there are columns, its cols are counted from
    columns - 1 at the smallest y down, not from 0 at the largest y up.
    """
    return _rearrange(points, False, columns)
