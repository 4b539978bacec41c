"""Damaged copies of images with right checksums: what the makers of other monitors may have done."""
import os
import random
import sys

sys.path.append(os.path.join(os.path.dirname(__file__), "../../Utilities/ZorEdidTool/Tests"))
from Checksums import fix_section, fix_sums

BLOCK_SIZE = 128
DISPLAY_ID = 0x70
CTA = 0x02


def seal(image):
    """An image of whole blocks with the right checksums of all blocks, and of DisplayID sections in them."""
    blocks = [image[i:i + BLOCK_SIZE] for i in range(0, len(image), BLOCK_SIZE)]
    return fix_sums(b"".join(fix_section(block) if block[0] == DISPLAY_ID else block for block in blocks))


def places(image):
    """Where the data blocks of CTA-861 blocks begin."""
    for block in range(BLOCK_SIZE, len(image) - BLOCK_SIZE + 1, BLOCK_SIZE):
        at = block + 4
        while image[block] == CTA and at < block + min(image[block + 2], BLOCK_SIZE - 1):
            yield at
            at += 1 + (image[at] & 0x1F)


def damage(image, chance):
    """One copy that is wrong in one way."""
    copy, kind = bytearray(image), chance.random()
    begins = list(places(image))
    if kind < 0.5:
        for _ in range(chance.randint(1, 3)):
            copy[chance.randrange(len(copy))] = chance.randrange(256)
    elif kind < 0.75:
        copy[chance.randrange(len(copy))] ^= 1 << chance.randrange(8)
    elif kind < 0.9 and begins:
        copy[chance.choice(begins)] ^= 1 << chance.randrange(8)  # length or tag
    elif kind < 0.95:
        first = chance.randrange(len(copy))
        copy[first:first + 18] = bytes([chance.choice((0, 0xFF))]) * len(copy[first:first + 18])
    elif len(copy) > BLOCK_SIZE:
        copy += copy[-BLOCK_SIZE:]
        copy[126] = len(copy) // BLOCK_SIZE - 1 & 0xFF
    return seal(copy)


def damaged(images, count):
    """So many (name, bytes), the same ones each time, of (name, bytes) of images."""
    chance, images = random.Random(1), list(images)
    for number in range(count):
        name, image = chance.choice(images)
        yield f"{number}-{name}", damage(image, chance)
