"""PNG pictures of the display."""

import mmap
import struct
import zlib

from waiting import wait_for

# So many looks in a row that show the same.
LOOKS = 4
BYTES_PER_PIXEL = 4
BYTES_PER_COLOUR = 12


class FrameBuffer:
    """What the display's server shows, which it keeps in a file in the format of the X window dump: a head of numbers
    with the most significant byte first, colours that nobody needs here, and rows of blue, green, red and nothing."""

    def __init__(self, path):
        with path.open("rb") as file:
            self._bytes = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        head = struct.unpack_from(">25I", self._bytes)
        self.width, self.height, self._row_bytes = head[4], head[5], head[12]
        self._begin = head[0] + head[19] * BYTES_PER_COLOUR

    def pixels(self, left, top, width, height):
        """Row by row from the top, as the server keeps them."""
        begin = self._begin + left * BYTES_PER_PIXEL
        rows = (begin + row * self._row_bytes for row in range(top, top + height))
        return b"".join(self._bytes[row:row + width * BYTES_PER_PIXEL] for row in rows)

    def is_dark(self, x, y):
        """Whether the green, which counts most, is less than half of what there could be."""
        return self.pixels(x, y, 1, 1)[1] < 0x80


class Album:
    """A folder of pictures of what a frame buffer shows."""

    def __init__(self, folder, frame_buffer):
        self.folder = folder
        self._frame_buffer = frame_buffer
        folder.mkdir(parents=True, exist_ok=True)
        for stale in folder.glob("failure.*"):
            stale.unlink()

    def is_dark(self, rect):
        """Whether the top edge of a part of the display is, in its middle."""
        return self._frame_buffer.is_dark(rect.x + rect.width // 2, rect.y)

    def look(self, rect):
        """What a part of the display shows now, to be compared with another look."""
        return self._frame_buffer.pixels(*rect)

    def take(self, name, rect):
        """A picture of a part of the display, once nothing moves in it any more."""
        seen = []

        def is_still():
            seen.append(self.look(rect))
            return seen[-LOOKS:] == [seen[-1]] * LOOKS

        wait_for(is_still, f"the screen to come to rest for the picture {name}", interval=0.03)
        self._save(name, rect.width, seen[-1])

    def take_at_once(self, name, rect):
        """A picture of something that moves."""
        self._save(name, rect.width, self.look(rect))

    def take_failure(self):
        """A picture of the whole display as it is. Returns where it lies."""
        shown = self._frame_buffer
        return self._save("failure", shown.width, shown.pixels(0, 0, shown.width, shown.height))

    def _save(self, name, width, pixels):
        path = self.folder / f"{name}.png"
        path.write_bytes(_png(width, pixels))
        return path


def _png(width, pixels):
    colours = bytearray(len(pixels) // BYTES_PER_PIXEL * 3)
    for channel, place in enumerate((2, 1, 0)):
        colours[channel::3] = pixels[place::BYTES_PER_PIXEL]
    row_bytes = width * 3
    # Every row as it is, which a zero before it says.
    rows = b"".join(b"\0" + colours[row:row + row_bytes] for row in range(0, len(colours), row_bytes))
    head = struct.pack(">IIBBBBB", width, len(colours) // row_bytes, 8, 2, 0, 0, 0)
    chunks = (b"IHDR", head), (b"IDAT", zlib.compress(rows)), (b"IEND", b"")
    return b"\x89PNG\r\n\x1a\n" + b"".join(_chunk(kind, content) for kind, content in chunks)


def _chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))
