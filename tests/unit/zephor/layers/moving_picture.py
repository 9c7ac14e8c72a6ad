#!/usr/bin/env python3
"""Prints the checksums that MovingPictureTest.cpp expects: the feedback step and the picture of MovingPicture.h
written a second time, from the definition, in another language. Takes some minutes for 6000 frames.

    moving_picture.py [FRAMES]"""
import struct
import sys

W, H = 203, 121
COSINE, SINE = 0.969786123, 0.020368503
SQUARE, DOTS = 9, 40
DECAY = [min(239, max(0, i - 1)) for i in range(256)]


def single(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def address(value, has_partner, last):
    value = max(value, 0.0)
    return min(round(value) & 0x07FFFFFF if has_partner else int(value), last)  # round() goes to even


def addresses():
    for row in range(H):
        y = row * 2.0 / H - 1.0
        for column in range(W):
            x = column * 2.0 / W - 1.0
            from_x, from_y = x * COSINE + y * SINE, y * COSINE - x * SINE
            cell_x = single(min(max((from_x + 1.0) * W * 0.5, 0.0), W - 1.0))
            cell_y = single(min(max((from_y + 1.0) * H * 0.5, 0.0), H - 1.0))
            paired = column < W // 2 * 2
            yield address(cell_x, paired, W - 1), address(cell_y, paired, H - 1)


def step(image, feeds):
    padded = [image[y * W:(y + 1) * W] + [0] for y in range(H)]
    result = []
    for sx, sy in feeds:
        total = padded[sy][sx] + padded[sy][sx + 1]
        if sy < H - 1:
            total = (total + padded[sy + 1][sx + 1] + padded[sy + 1][sx]) // 2
        result.append(DECAY[total // 2])
    return result


def main():
    frames = int(sys.argv[1]) if len(sys.argv) > 1 else 600
    feeds = list(addresses())
    image, seed = [0] * (W * H), 1234

    def random():
        nonlocal seed
        seed = (seed * 214013 + 2531011) & 0xFFFFFFFF
        return seed >> 16 & 0x7FFF

    for frame in range(frames):
        image = step(image, feeds)
        left, top = frame * 7 % (W - SQUARE), frame * 5 % (H - SQUARE)
        for y in range(top, top + SQUARE):
            image[y * W + left:y * W + left + SQUARE] = [255] * SQUARE
        for _ in range(DOTS):
            x, y = random() % W, random() % H
            image[y * W + x] = random() & 0xFF
        if frame + 1 in (1, 60, 600, 6000):
            checksum = 0xCBF29CE484222325
            for pixel in image:
                checksum = (checksum ^ pixel) * 0x100000001B3 & 0xFFFFFFFFFFFFFFFF
            print(f"frame {frame + 1}: 0x{checksum:016x}", flush=True)


main()
