#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Make the connection-state icons from their drawings, or check the ones that are there.

Each drawings/NAME.svg becomes NAME.png beside this program: a 40 x 40 PNG with a palette of at
most 256 colours and with exactly the number of bytes that FILE_BYTES asks for. To get there, the
drawing keeps as many of its colours as fit, and its title is padded with spaces.

Drawing needs rsvg-convert (Debian package librsvg2-bin); --check needs Python 3 alone.
"""

import argparse
import collections
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree
import zlib

FILE_BYTES = {
    "wifi_connect1": 1066,
    "wifi_connect2": 1142,
    "wifi_connect3": 1392,
    "wifi_connect3passive": 1339,
    "wifi_disconnect": 1374,
}

FOLDER = pathlib.Path(__file__).resolve().parent
SIDE = 40  # pixels
FEWEST_COLOURS = 24  # with fewer, the curves show steps
MOST_COLOURS = 256
SIGNATURE = b"\x89PNG\r\n\x1a\n"
PALETTE, RGBA = 3, 6  # PNG colour types
CHANNELS = {PALETTE: 1, RGBA: 4}
ICON_CHUNKS = [b"IHDR", b"tEXt", b"PLTE", b"tRNS", b"IDAT", b"IEND"]


class IconError(Exception):
    """What is wrong with an icon or its drawing; the caller adds the file's name."""


# Reading PNG


def read_chunks(data):
    """The chunks of a PNG file as (kind, body) pairs, with every checksum verified."""
    if not data.startswith(SIGNATURE):
        raise IconError("is not a PNG file")
    chunks = []
    at = len(SIGNATURE)
    while at < len(data):
        if len(data) - at < 12:
            raise IconError(f"ends within a chunk, at byte {len(data)}")
        (length,) = struct.unpack_from(">I", data, at)
        end = at + 12 + length
        if end > len(data):
            raise IconError(f"ends within a chunk, at byte {len(data)}")
        kind, body = data[at + 4 : at + 8], data[at + 8 : end - 4]
        if struct.unpack_from(">I", data, end - 4) != (zlib.crc32(kind + body),):
            raise IconError(f"has a wrong checksum in the chunk at byte {at}")
        chunks.append((kind, body))
        at = end
    return chunks


def header(colour_type):
    return struct.pack(">IIBBBBB", SIDE, SIDE, 8, colour_type, 0, 0, 0)


def read_image(data, colour_type):
    """The pixel bytes of a PNG file of our size and the given colour type, and its chunks."""
    chunks = read_chunks(data)
    if chunks[-1:] != [(b"IEND", b"")]:
        raise IconError("does not end with an empty IEND chunk")
    if chunks[0] != (b"IHDR", header(colour_type)):
        raise IconError(
            f"is not {SIDE} x {SIDE} pixels, 8 bits, colour type {colour_type}, not interlaced"
        )
    try:
        rows = zlib.decompress(b"".join(body for kind, body in chunks if kind == b"IDAT"))
    except zlib.error as error:
        raise IconError(f"has broken pixel data: {error}") from error
    return unfiltered(rows, CHANNELS[colour_type]), chunks


def paeth(left, up, corner):
    """The PNG predictor: whichever neighbour is nearest to left + up - corner."""
    return min((left, up, corner), key=lambda near: abs(left + up - corner - near))


PREDICTORS = (
    lambda left, up, corner: 0,
    lambda left, up, corner: left,
    lambda left, up, corner: up,
    lambda left, up, corner: (left + up) // 2,
    paeth,
)


def unfiltered(rows, channels):
    """The pixel bytes of filtered rows, without the filter byte that starts each row."""
    width = SIDE * channels
    if len(rows) != SIDE * (width + 1):
        raise IconError("has too few or too many pixels")
    pixels = bytearray()
    above = bytes(width)
    for start in range(0, len(rows), width + 1):
        if rows[start] >= len(PREDICTORS):
            raise IconError(f"has a row with the unknown filter {rows[start]}")
        predict = PREDICTORS[rows[start]]
        row = bytearray()
        for x, value in enumerate(rows[start + 1 : start + 1 + width]):
            near = (row[x - channels], above[x - channels]) if x >= channels else (0, 0)
            row.append((value + predict(near[0], above[x], near[1])) % 256)
        pixels += row
        above = row
    return bytes(pixels)


# Writing PNG


def chunk(kind, body):
    return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))


def filtered(indices, number):
    """Rows of one-byte pixels, every row with the same filter."""
    rows = bytearray()
    above = bytes(SIDE)
    for start in range(0, len(indices), SIDE):
        row = indices[start : start + SIDE]
        rows.append(number)
        for x, value in enumerate(row):
            near = (row[x - 1], above[x - 1]) if x else (0, 0)
            rows.append((value - PREDICTORS[number](near[0], above[x], near[1])) % 256)
        above = row
    return bytes(rows)


def encoded(pixels, title):
    """A palette PNG, as small as zlib gets it, of pixels that are (red, green, blue, alpha)."""
    # Opaque colours last: the transparency chunk may end before them.
    palette = sorted(set(pixels), key=lambda colour: (colour[3], colour))
    place = {colour: index for index, colour in enumerate(palette)}
    indices = bytes(place[pixel] for pixel in pixels)
    body = min(
        (zlib.compress(filtered(indices, number), 9) for number in range(len(PREDICTORS))), key=len
    )
    return (
        SIGNATURE
        + chunk(b"IHDR", header(PALETTE))
        + chunk(b"tEXt", b"Title\0" + title.encode("latin-1"))
        + chunk(b"PLTE", b"".join(bytes(colour[:3]) for colour in palette))
        + chunk(b"tRNS", bytes(colour[3] for colour in palette if colour[3] < 255))
        + chunk(b"IDAT", body)
        + chunk(b"IEND", b"")
    )


# From drawing to icon


def difference(one, other):
    """How far two colours are apart to the eye, seen on black and on white."""
    total = 0
    for channel in range(3):
        on_black = (one[channel] * one[3] - other[channel] * other[3]) / 255
        on_white = on_black - (one[3] - other[3])
        total += on_black * on_black + on_white * on_white
    return total


def fewer_colours(pixels):
    """Yields the pixels in all their colours, then with one colour less each time.

    The colour that goes is the one whose pixels change least by taking the nearest colour left.
    """
    count = collections.Counter(pixels)
    colours = sorted(count)
    neighbours = {
        colour: sorted(colours, key=lambda other: (difference(colour, other), other))[1:]
        for colour in colours
    }
    yield pixels
    while len(count) > 1:
        loss, gone, heir = min(
            (count[colour] * difference(colour, near), colour, near)
            for colour in count
            for near in [next(other for other in neighbours[colour] if other in count)]
        )
        count[heir] += count.pop(gone)
        pixels = [heir if pixel == gone else pixel for pixel in pixels]
        yield pixels


def rasterised(drawing):
    """The pixels of an SVG file as (red, green, blue, alpha)."""
    try:
        result = subprocess.run(
            ["rsvg-convert", "--width", str(SIDE), "--height", str(SIDE), drawing],
            capture_output=True,
            check=False,
        )
    except FileNotFoundError as error:
        raise IconError("needs rsvg-convert: install the package librsvg2-bin") from error
    if result.returncode != 0:
        raise IconError(f"cannot be drawn: {result.stderr.decode(errors='replace').strip()}")
    data, _ = read_image(result.stdout, RGBA)
    return [tuple(data[at : at + 4]) for at in range(0, len(data), 4)]


def title_of(drawing):
    title = xml.etree.ElementTree.parse(drawing).findtext("{http://www.w3.org/2000/svg}title")
    if not title:
        raise IconError("has no <title>")
    return title


def make(drawing, file_bytes):
    """The icon of a drawing as a PNG of exactly file_bytes, and how it got there."""
    title = title_of(drawing)
    drawn = rasterised(drawing)
    for pixels in fewer_colours(drawn):
        colours = len(set(pixels))
        if colours > MOST_COLOURS:
            continue
        spare = file_bytes - len(encoded(pixels, title))
        if spare >= 0:
            report = f"{colours} of {len(set(drawn))} colours, {spare} bytes of padding"
            return encoded(pixels, title + " " * spare), report
        if colours <= FEWEST_COLOURS:
            break
    raise IconError(f"takes {-spare} bytes more than {file_bytes}, even with {colours} colours")


def make_all():
    """Replaces the five icons, or none of them if one drawing fails."""
    icons = {}
    for name, file_bytes in FILE_BYTES.items():
        drawing = FOLDER / "drawings" / f"{name}.svg"
        try:
            icon, report = make(drawing, file_bytes)
        except (IconError, OSError, xml.etree.ElementTree.ParseError) as error:
            sys.exit(f"{drawing}: {error}\nNo icon was changed.")
        icons[FOLDER / f"{name}.png"] = icon
        print(f"{name}.png: {report}")
    with tempfile.TemporaryDirectory(dir=FOLDER) as folder:
        for path, icon in icons.items():
            pathlib.Path(folder, path.name).write_bytes(icon)
        for path in icons:
            os.replace(pathlib.Path(folder, path.name), path)


# Checking


def check(path, file_bytes):
    """Raises IconError unless the file is a valid palette PNG of our size and of file_bytes."""
    data = path.read_bytes()
    if len(data) != file_bytes:
        raise IconError(f"has {len(data)} bytes instead of {file_bytes}")
    indices, chunks = read_image(data, PALETTE)
    if [kind for kind, _ in chunks] != ICON_CHUNKS:
        raise IconError(f"does not consist of the chunks {b' '.join(ICON_CHUNKS).decode()}")
    bodies = dict(chunks)
    colours, rest = divmod(len(bodies[b"PLTE"]), 3)
    if rest or not 1 <= colours <= MOST_COLOURS or not 1 <= len(bodies[b"tRNS"]) <= colours:
        raise IconError("has a palette or transparency table of a wrong length")
    if max(indices) >= colours:
        raise IconError(f"has a pixel of colour {max(indices)}, but only {colours} colours")


def check_all():
    """Exits with an error that names every bad icon, if there is one."""
    wrong = []
    for name, file_bytes in FILE_BYTES.items():
        path = FOLDER / f"{name}.png"
        try:
            check(path, file_bytes)
        except (IconError, OSError) as error:
            wrong.append(f"{path}: {error}")
    if wrong:
        sys.exit("\n".join(wrong))


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument(
        "--check", action="store_true", help="verify the five icon files and change nothing"
    )
    if parser.parse_args().check:
        check_all()
    else:
        make_all()


if __name__ == "__main__":
    main()
