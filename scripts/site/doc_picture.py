"""Makes one small picture for the pages.

doc_picture.py IN OUT [--crop X,Y,WIDTH,HEIGHT] [--by N] [--brightest] [--levels N] [--stages FILE --show KIND,...]

Pixels are means of N x N of the input's, in whole numbers, so that every machine gets the same; with --brightest the
brightest of them, so that fine lines stay seen. --levels keeps so many grey levels, which makes small files of
drawings. --stages draws what a file of direct_stages holds over the picture; for the kind measured lines to where the
camera has a mark are drawn 3000 times as long."""

import argparse

import cv2
import numpy

COLOURS = {  # blue, green, red
    "candidate": (40, 110, 230),
    "arm": (200, 150, 30),
    "link": (90, 160, 40),
    "seed": (40, 110, 230),
    "grown": (40, 110, 230),
    "measured": (40, 110, 230),
}
MAGNIFIED = 3000  # times, arrows from a mark to where the camera has it
FRACTION_BITS = 4  # of positions that OpenCV takes as whole numbers


def shrunk(pixels, by, brightest):
    height, width = pixels.shape[0] // by, pixels.shape[1] // by
    cells = pixels[: height * by, : width * by].astype(numpy.uint32).reshape(height, by, width, by, -1)
    if brightest:
        return cells.max(axis=(1, 3)).astype(numpy.uint8).squeeze()
    means = (cells.sum(axis=(1, 3)) + by * by // 2) // (by * by)
    return means.astype(numpy.uint8).squeeze()


def drawn(pixels, lines, kinds, left, top, by):
    """The places of the stages, on a picture that was cut at left, top and shrunk."""

    def place(x, y):
        return tuple(round(((v - first + 0.5) / by - 0.5) * (1 << FRACTION_BITS)) for v, first in ((x, left), (y, top)))

    for kind in kinds:
        for line in lines:
            name, *numbers = line.split(",")
            if name != kind:
                continue
            x, y, to_x, to_y = (float(n) for n in numbers)
            if kind == "grown":
                to_x, to_y = x, y
            if kind == "measured":
                to_x, to_y = x + MAGNIFIED * (to_x - x), y + MAGNIFIED * (to_y - y)
            if kind == "candidate":
                cv2.circle(pixels, place(x, y), 5 << FRACTION_BITS, COLOURS[kind], 2, cv2.LINE_8, FRACTION_BITS)
            else:
                if kind not in ("arm", "link"):
                    cv2.circle(pixels, place(x, y), 3 << FRACTION_BITS, COLOURS[kind], -1, cv2.LINE_8, FRACTION_BITS)
                cv2.line(pixels, place(x, y), place(to_x, to_y), COLOURS[kind], 2, cv2.LINE_8, FRACTION_BITS)
    return pixels


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("input")
    parser.add_argument("output")
    parser.add_argument("--crop")
    parser.add_argument("--by", type=int, default=1)
    parser.add_argument("--brightest", action="store_true")
    parser.add_argument("--levels", type=int)
    parser.add_argument("--stages")
    parser.add_argument("--show", default="")
    asked = parser.parse_args()
    pixels = cv2.imread(asked.input, cv2.IMREAD_UNCHANGED)
    left = top = 0
    if asked.crop:
        left, top, width, height = (int(n) for n in asked.crop.split(","))
        pixels = pixels[top : top + height, left : left + width]
    pixels = shrunk(pixels, asked.by, asked.brightest)
    if asked.levels:
        step = 255 // (asked.levels - 1)
        pixels = ((pixels.astype(numpy.uint32) + step // 2) // step * step).astype(numpy.uint8)
    if asked.stages:
        if pixels.ndim == 2:
            pixels = cv2.cvtColor(pixels, cv2.COLOR_GRAY2BGR)
        with open(asked.stages, encoding="utf-8") as file:
            pixels = drawn(pixels, file.read().splitlines(), asked.show.split(","), left, top, asked.by)
    if asked.output.endswith(".jpg"):
        cv2.imwrite(asked.output, pixels, [cv2.IMWRITE_JPEG_QUALITY, 72])
    else:
        cv2.imwrite(asked.output, pixels, [cv2.IMWRITE_PNG_COMPRESSION, 9])


main()
