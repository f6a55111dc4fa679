"""Reads executables of macOS and their signatures, for verify-bundle.

Any bytes that do not match the format raise a Malformed error.
"""

import dataclasses
import hashlib
import struct

FAT_MAGIC, MAGIC_64 = 0xCAFEBABE, 0xFEEDFACF
ARCHITECTURES = {0x0100000C: "arm64", 0x01000007: "x86_64"}
LC_SEGMENT_64, LC_UUID, LC_CODE_SIGNATURE, LC_BUILD_VERSION = 0x19, 0x1B, 0x1D, 0x32
LC_DYLIBS = {0xC, 0x80000018, 0x8000001F, 0x80000023, 0x20}
LC_RPATH, LC_DYLD_ENVIRONMENT = 0x8000001C, 0x27
HASHES = {1: hashlib.sha1, 2: hashlib.sha256}


class Malformed(Exception):
    """The bytes do not match the format."""


def unpack(form, data, at):
    try:
        return struct.unpack_from(form, data, at)
    except struct.error as error:
        raise Malformed(f"ends too early: {error}") from error


def text_at(data, begin):
    end = data.find(b"\0", begin)
    return data[begin:end if end >= 0 else len(data)].decode("utf-8", "replace")


@dataclasses.dataclass
class CodeDirectory:
    version: int
    flags: int
    identifier: str
    limit: int
    hash_type: int
    page_size: int
    page_hashes: list
    special_hashes: dict
    executable_segment: tuple


@dataclasses.dataclass
class Image:
    """One architecture's part of an executable."""
    data: bytes
    architecture: str
    file_type: int = 0
    flags: int = 0
    uuid: bytes = b""
    platform: int = 0
    oldest_system: tuple = ()
    sdk: tuple = ()
    dylibs: list = dataclasses.field(default_factory=list)
    odd_commands: list = dataclasses.field(default_factory=list)
    segments: dict = dataclasses.field(default_factory=dict)
    signature: tuple = ()


def version(packed):
    return packed >> 16, packed >> 8 & 255


def read_images(data):
    """Returns the images of a file; empty if it is not an executable of macOS."""
    if len(data) < 8:
        return []
    if struct.unpack_from(">I", data)[0] == FAT_MAGIC:
        count, = unpack(">I", data, 4)
        places = [unpack(">5I", data, 8 + 20 * number)[2:4] for number in range(count)]
        return [read_image(data[at:at + size]) for at, size in places]
    if struct.unpack_from("<I", data)[0] == MAGIC_64:
        return [read_image(data)]
    return []


def read_image(data):
    magic, cpu, _, file_type, count, _, flags, _ = unpack("<8I", data, 0)
    if magic != MAGIC_64:
        raise Malformed("one of its parts is not a 64-bit executable")
    image = Image(data, ARCHITECTURES.get(cpu, hex(cpu)), file_type, flags)
    at = 32
    for _ in range(count):
        command, size = unpack("<2I", data, at)
        if size < 8:
            raise Malformed("a load command has no length")
        read_load_command(image, command, data[at:at + size])
        at += size
    return image


def read_load_command(image, command, data):
    if command == LC_UUID:
        image.uuid = data[8:24]
    elif command == LC_BUILD_VERSION:
        image.platform, oldest, sdk = unpack("<3I", data, 8)
        image.oldest_system, image.sdk = version(oldest), version(sdk)
    elif command in LC_DYLIBS:
        image.dylibs.append(text_at(data, unpack("<I", data, 8)[0]))
    elif command == LC_SEGMENT_64:
        image.segments[text_at(data[:24], 8)] = unpack("<4Q", data, 24)
    elif command == LC_CODE_SIGNATURE:
        image.signature = unpack("<2I", data, 8)
    elif command in (LC_RPATH, LC_DYLD_ENVIRONMENT):
        image.odd_commands.append(text_at(data, 12))


def read_signature(data):
    """Returns the slots of a signature, each with its bytes."""
    magic, length, count = unpack(">3I", data, 0)
    if magic != 0xFADE0CC0 or length > len(data):
        raise Malformed("there is no signature where the load command says")
    slots = {}
    for number in range(count):
        slot, at = unpack(">2I", data, 12 + 8 * number)
        slots[slot] = data[at:at + unpack(">I", data, at + 4)[0]]
    return slots


def read_code_directory(data):
    (magic, length, version_, flags, hashes_at, identifier_at, special_count, page_count, limit,
     hash_size, hash_type, _, page_shift) = unpack(">9I4B", data, 0)
    if magic != 0xFADE0C02 or length != len(data) or hash_type not in HASHES:
        raise Malformed("its slot has no code directory")

    def hash_at(number):
        begin = hashes_at + number * hash_size
        return data[begin:begin + hash_size]

    return CodeDirectory(
        version_, flags, text_at(data, identifier_at), limit, hash_type, 1 << page_shift,
        [hash_at(number) for number in range(page_count)],
        {slot: hash_at(-slot) for slot in range(1, special_count + 1) if any(hash_at(-slot))},
        unpack(">3Q", data, 64) if version_ >= 0x20400 else ())
