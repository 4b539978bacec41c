"""The checksums of hand-made images."""


def fix_sums(image):
    """All blocks with the right checksum."""
    blocks = [image[i:i + 127] for i in range(0, len(image), 128)]
    return b"".join(block + bytes([-sum(block) % 256]) for block in blocks)


def fix_section(block):
    """A DisplayID block with the right checksum of its section, where that leaves room for it."""
    end = block[2] + 5
    return block if end >= 127 else block[:end] + bytes([-sum(block[1:end]) % 256]) + block[end + 1:]


def display_id(data, version=0x12, length=None, product=0, extensions=0):
    """A DisplayID block with a section around the data blocks, without padding and the checksum of the block."""
    section = bytes([version, len(data) if length is None else length, product, extensions]) + data
    return b"\x70" + section + bytes([-sum(section) % 256])
