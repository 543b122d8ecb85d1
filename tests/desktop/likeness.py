#!/usr/bin/python3
"""Compares the map in a picture of the window with the same map on a page, whatever their places and sizes.

    likeness.py WINDOW PAGE
"""

import subprocess
import sys

DARK = 160


def told(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True).stdout


def below_menu_bar(file):
    """The first row that is not as grey as the first at their end, where no menu is."""
    width, height = map(int, told("identify", "-format", "%w %h", file).split())
    column = told("convert", file, "-crop", f"1x{height}+{width - 8}+0", "+repage", "-alpha", "off", "-depth", "8", "gray:-")
    return next(row for row in range(height) if abs(column[row] - column[0]) > 8)


def box(file, top):
    """The box of what is not white, from a row on: left, top, width, height."""
    width, height = map(int, told("identify", "-format", "%w %h", file).split())
    text = told("convert", file, "-crop", f"{width}x{height - top}+0+{top}", "+repage", "-fuzz", "30%", "-format", "%@",
                "info:-").decode()
    size, left, upper = text.split("+")
    return int(left), int(upper) + top, *map(int, size.split("x"))


def dark(file, part, size):
    left, top, width, height = part
    data = told("convert", file, "-crop", f"{width}x{height}+{left}+{top}", "+repage", "-resize", f"{size[0]}x{size[1]}!",
                "-alpha", "off", "-depth", "8", "rgb:-")
    pixels = [min(data[i:i + 3]) < DARK for i in range(0, len(data), 3)]
    return [pixels[row * size[0]:(row + 1) * size[0]] for row in range(size[1])]


def strays(rows, others, reach=2):
    lost = count = 0
    for y, row in enumerate(rows):
        for x, inked in enumerate(row):
            if inked:
                count += 1
                near = others[max(y - reach, 0):y + reach + 1]
                lost += not any(any(other[max(x - reach, 0):x + reach + 1]) for other in near)
    return lost / count


def main(window, page):
    on_window, on_page = box(window, below_menu_bar(window)), box(page, 0)
    size = on_window[2:]
    shape = on_page[2] / on_page[3] / (size[0] / size[1])
    seen, printed = dark(window, on_window, size), dark(page, on_page, size)
    there, back = strays(seen, printed), strays(printed, seen)
    mirrored = strays(seen, [row[::-1] for row in printed])
    print(f"proportions {shape:.4f}, missing {there:.4f}, more {back:.4f}, mirrored {mirrored:.4f}")
    if not (0.995 < shape < 1.005 and there < 0.005 and back < 0.01 and mirrored > 0.2):
        sys.exit("the page does not look like the window")


main(*sys.argv[1:])
