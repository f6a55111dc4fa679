#!/usr/bin/env python3
"""An intact bundle passes verify-bundle; a bundle with any damage does not."""

import pathlib
import plistlib
import shutil
import struct
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
from SampleBundle import BACKEND, SampleBundle, can_be_made, sign, verify  # noqa: E402

MAIN = "MacOS/Stagehopper"


def setUpModule():
    global folder, intact
    folder = tempfile.TemporaryDirectory()
    unittest.addModuleCleanup(folder.cleanup)
    intact = pathlib.Path(folder.name, "Intact.app")
    SampleBundle(folder_for("thin")).make(intact, ["arm64"])


def folder_for(name):
    made = pathlib.Path(folder.name, name)
    made.mkdir()
    return made


def load_command(data, wanted):
    """Returns where the first load command of this kind begins."""
    count, = struct.unpack_from("<I", data, 16)
    at = 32
    for _ in range(count):
        command, size = struct.unpack_from("<2I", data, at)
        if command == wanted:
            return at
        at += size
    raise AssertionError(f"no load command {wanted:#x}")


class BundleTest(unittest.TestCase):
    def setUp(self):
        self.app = pathlib.Path(folder.name, "Damaged.app")
        shutil.copytree(intact, self.app)
        self.addCleanup(shutil.rmtree, self.app)
        self.contents = self.app / "Contents"

    def change(self, name, change):
        """Calls `change` with the bytes of a file and writes the result."""
        path = self.contents / name
        data = bytearray(path.read_bytes())
        changed = change(data)
        path.write_bytes(data if changed is None else changed)

    def change_info(self, **values):
        info = plistlib.loads((self.contents / "Info.plist").read_bytes())
        (self.contents / "Info.plist").write_bytes(plistlib.dumps({**info, **values}))

    def assert_rejected(self, words):
        status, printed = verify(self.app, "arm64")
        self.assertEqual(status, 1, printed)
        self.assertIn(words, printed)
        self.assertNotIn("Traceback", printed)


class AnIntactBundle(BundleTest):
    def test_passes(self):
        status, printed = verify(self.app, "arm64")
        self.assertEqual(status, 0, printed)
        self.assertNotIn("WRONG", printed)

    def test_passes_for_two_architectures_at_once(self):
        both = pathlib.Path(folder.name, "Both.app")
        SampleBundle(folder_for("fat")).make(both, ["arm64", "x86_64"])
        status, printed = verify(both, "x86_64", "arm64")
        self.assertEqual(status, 0, printed)

    def test_does_not_pass_for_another_architecture(self):
        status, printed = verify(self.app, "x86_64")
        self.assertEqual(status, 1)
        self.assertIn("MacOS/Stagehopper is for arm64", printed)

    def test_signed_once_more_is_the_same_byte_for_byte(self):
        sign(self.app)
        for path in sorted(intact.rglob("*")):
            again = self.app / path.relative_to(intact)
            self.assertTrue(again.exists(), again)
            if path.is_file():
                self.assertEqual(again.read_bytes(), path.read_bytes(), again)
                self.assertEqual(again.stat().st_mode, path.stat().st_mode, again)


class AChangedExecutable(BundleTest):
    def flip_last_byte_of_page(self, name, page):
        def flip(data):
            data[(page + 1) * 4096 - 1] ^= 1

        self.change(name, flip)

    def test_is_found_on_its_first_page(self):
        self.flip_last_byte_of_page(MAIN, 0)
        self.assert_rejected(f"{MAIN} (arm64): page 0 differs from its hash")

    def test_is_found_on_a_later_page(self):
        self.flip_last_byte_of_page(MAIN, 3)
        self.assert_rejected(f"{MAIN} (arm64): page 3 differs from its hash")

    def test_is_found_in_the_backend(self):
        self.flip_last_byte_of_page(BACKEND, 1)
        self.assert_rejected(f"{BACKEND} (arm64): page 1 differs from its hash")

    def test_is_found_behind_its_signature(self):
        self.change(MAIN, lambda data: data + b"more")
        self.assert_rejected("bytes after its signature")

    def test_is_found_without_a_signature(self):
        def overwrite(data):
            at, = struct.unpack_from("<I", data, load_command(data, 0x1D) + 8)
            data[at:at + 4] = bytes(4)

        self.change(MAIN, overwrite)
        self.assert_rejected("no signature where the load command says")

    def test_is_found_cut_off(self):
        self.change(MAIN, lambda data: data[:40])
        self.assert_rejected("ends too early")

    def test_is_found_signed_under_another_name(self):
        def rename(data):
            begin = data.rindex(b"org.stagehopper.Stagehopper\0")
            data[begin:begin + 3] = b"com"

        self.change(MAIN, rename)
        self.assert_rejected("is signed as com.stagehopper.Stagehopper")

    def test_is_found_replaced_by_another_signed_one(self):
        shutil.copytree(self.app, self.app.with_name("Other.app"))
        self.addCleanup(shutil.rmtree, self.app.with_name("Other.app"))
        other = self.app.with_name("Other.app") / "Contents" / BACKEND
        data = bytearray(other.read_bytes())
        at = load_command(data, 0x1B)
        data[at + 8] ^= 1
        other.write_bytes(data)
        sign(self.app.with_name("Other.app"))
        shutil.copy(other, self.contents / BACKEND)
        self.assert_rejected(f"{BACKEND} differs from its sealed hash")


class LoadCommands(BundleTest):
    """These bundles are signed again, so that only the load command is wrong."""

    def change_command(self, name, wanted, change):
        def apply(data):
            change(data, load_command(data, wanted))

        self.change(name, apply)
        sign(self.app)

    def test_for_a_newer_system_are_found(self):
        self.change_command(MAIN, 0x32,
                            lambda data, at: struct.pack_into("<I", data, at + 12, 13 << 16))
        self.assert_rejected(f"{MAIN} (arm64) runs from macOS 13.0")

    def test_for_another_platform_are_found(self):
        self.change_command(BACKEND, 0x32,
                            lambda data, at: struct.pack_into("<I", data, at + 8, 2))
        self.assert_rejected(f"{BACKEND} (arm64) is for platform 2")

    def test_without_an_sdk_are_found(self):
        self.change_command(MAIN, 0x32,
                            lambda data, at: struct.pack_into("<I", data, at + 16, 0))
        self.assert_rejected("built for no SDK")

    def test_with_a_foreign_library_are_found(self):
        self.change(MAIN, lambda data: data.replace(b"/usr/lib/libobjc.A", b"/usr/lib/libobjc.B"))
        sign(self.app)
        self.assert_rejected("loads /usr/lib/libobjc.B.dylib")

    def test_without_the_web_view_are_found(self):
        shutil.rmtree(self.app)
        SampleBundle(folder_for("no-webkit")).make(self.app, ["arm64"], frameworks=("AppKit",))
        self.assert_rejected(f"{MAIN} (arm64) does not load WebKit")

    def test_without_a_uuid_are_found(self):
        self.change_command(MAIN, 0x1B, lambda data, at: data.__setitem__(
            slice(at + 8, at + 24), bytes(16)))
        self.assert_rejected("has no LC_UUID")

    def test_with_the_same_uuid_twice_are_found(self):
        data = (self.contents / MAIN).read_bytes()
        at = load_command(data, 0x1B) + 8
        self.change_command(BACKEND, 0x1B, lambda other, there: other.__setitem__(
            slice(there + 8, there + 24), data[at:at + 16]))
        self.assert_rejected("two executables have the same LC_UUID")

    def test_of_too_large_a_program_are_found(self):
        shutil.rmtree(self.app)
        SampleBundle(folder_for("large")).make(self.app, ["arm64"], filler=2_000_000)
        self.assert_rejected(f"{MAIN} (arm64) has 2")


class Resources(BundleTest):
    def test_that_changed_are_found(self):
        self.change("Resources/panel.html", lambda data: data.replace(b"Panel", b"panel"))
        self.assert_rejected("Resources/panel.html differs from its sealed hash")

    def test_that_were_added_are_found(self):
        (self.contents / "Resources/third-party/more.js").write_text("alert(1);")
        self.assert_rejected("Resources/third-party/more.js exists but is not sealed")

    def test_that_were_removed_are_found(self):
        (self.contents / "Resources/third-party/code.js").unlink()
        self.assert_rejected("Resources/third-party/code.js is sealed but missing")

    def test_that_became_links_are_found(self):
        page = self.contents / "Resources/panel.html"
        page.rename(pathlib.Path(folder.name, "panel.html"))
        page.symlink_to(pathlib.Path(folder.name, "panel.html"))
        self.assert_rejected("Resources/panel.html is not a plain file")

    def test_whose_change_was_entered_in_the_list_are_found(self):
        listing = self.contents / "_CodeSignature/CodeResources"
        kept = (self.contents / MAIN).read_bytes()
        before = listing.read_bytes()
        self.change("Resources/panel.html", lambda data: data + b"<p>")
        sign(self.app)
        (self.contents / MAIN).write_bytes(kept)
        self.assertNotEqual(listing.read_bytes(), before)
        self.assert_rejected("its signature does not match the list of resources")

    def test_without_a_list_are_found(self):
        (self.contents / "_CodeSignature/CodeResources").unlink()
        self.assert_rejected("_CodeSignature/CodeResources: No such file or directory")

    def test_without_the_large_icon_are_found(self):
        def cut(data):
            at = data.index(b"ic10")
            return struct.pack(">4sI", b"icns", at) + data[8:at]

        self.change("Resources/Stagehopper.icns", cut)
        sign(self.app)
        self.assert_rejected("the icon has no ic10 of 1024 pixels")


class Modes(BundleTest):
    def test_of_an_executable_that_cannot_be_executed_are_found(self):
        (self.contents / BACKEND).chmod(0o644)
        self.assert_rejected(f"{BACKEND} cannot be executed")

    def test_of_a_page_that_can_be_executed_are_found(self):
        (self.contents / "Resources/panel.html").chmod(0o755)
        self.assert_rejected("Resources/panel.html is marked as executable")


class InfoPlist(BundleTest):
    def test_that_changed_is_found(self):
        self.change("Info.plist", lambda data: data.replace(b"2026", b"2027"))
        self.assert_rejected("its signature does not match Info.plist")

    def test_for_another_system_is_found(self):
        self.change_info(LSMinimumSystemVersion="13.0")
        sign(self.app)
        self.assert_rejected("LSMinimumSystemVersion is '13.0' and not '12.0'")

    def test_that_allows_any_network_is_found(self):
        self.change_info(NSAppTransportSecurity={"NSAllowsArbitraryLoads": True})
        sign(self.app)
        self.assert_rejected("NSAppTransportSecurity is {'NSAllowsArbitraryLoads': True}")

    def test_that_cannot_be_read_is_found(self):
        self.change("Info.plist", lambda data: data[:100])
        self.assert_rejected("Info.plist cannot be read")


if __name__ == "__main__":
    if not can_be_made():
        print("clang 19 is missing: run 'tools/setup macos'.")
        sys.exit(77)
    unittest.main()
