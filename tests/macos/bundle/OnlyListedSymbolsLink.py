#!/usr/bin/env python3
"""Only listed symbols can be linked for macOS, and the project's lists are valid."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
from SampleBundle import LLVM, PROJECT, can_be_made  # noqa: E402


class Stubs(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.lists = self.folder / "lists"
        self.lists.mkdir()
        self.sdk = self.folder / "sdk"

    def write_stubs(self, **lists):
        """Takes each list by its name; returns the exit status and the messages."""
        for name, lines in lists.items():
            (self.lists / f"{name}.txt").write_text("\n".join(lines) + "\n")
        result = subprocess.run([PROJECT / "tools/macos-stubs", self.lists, self.sdk],
                                capture_output=True, text=True, check=False)
        return result.returncode, result.stderr


class Linking(Stubs):
    def link(self, function, architecture="arm64"):
        """Returns whether a program that calls the function can be linked."""
        result = subprocess.run(
            [LLVM / "clang", f"--target={architecture}-apple-macos12.0", "-isysroot", self.sdk,
             "-fuse-ld=lld", "-Wl,-fixup_chains", "-lobjc", "-framework", "AppKit", "-o",
             self.folder / "program", "-x", "c", "-"],
            input=f"void {function}(void); int main(void) {{ {function}(); }}",
            capture_output=True, text=True, check=False)
        if result.returncode != 0:
            self.assertIn(f"undefined symbol: {function}", result.stderr)
        return result.returncode == 0

    def write_valid_stubs(self):
        status, messages = self.write_stubs(
            libSystem=["library /usr/lib/libSystem.B.dylib"],
            libobjc=["library /usr/lib/libobjc.A.dylib", "# sends", "objc_msgSend",
                     "objc_msgSend_stret x86_64  # large results"],
            AppKit=["library /System/Library/Frameworks/AppKit.framework/Versions/C/AppKit",
                    "NSBeep"])
        self.assertEqual(status, 0, messages)

    def test_finds_what_is_listed(self):
        self.write_valid_stubs()
        self.assertTrue(self.link("objc_msgSend"))
        self.assertTrue(self.link("NSBeep"))

    def test_fails_for_a_mistyped_name(self):
        self.write_valid_stubs()
        self.assertFalse(self.link("NSBeeep"))

    def test_fails_where_the_architecture_does_not_have_it(self):
        self.write_valid_stubs()
        self.assertTrue(self.link("objc_msgSend_stret", "x86_64"))
        self.assertFalse(self.link("objc_msgSend_stret", "arm64"))

    def test_sees_a_symbol_that_was_added_later(self):
        self.write_valid_stubs()
        self.assertFalse(self.link("objc_retain"))
        self.write_stubs(libobjc=["library /usr/lib/libobjc.A.dylib", "objc_retain"])
        self.assertTrue(self.link("objc_retain"))


class Lists(Stubs):
    def test_of_the_project_are_valid(self):
        self.lists = PROJECT / "cmake/macos-symbols"
        self.assertEqual(self.write_stubs(), (0, ""))

    def test_without_a_library_are_refused(self):
        status, messages = self.write_stubs(libobjc=["objc_msgSend"])
        self.assertNotEqual(status, 0)
        self.assertIn("libobjc.txt:1: begins with 'library'", messages)

    def test_with_a_symbol_twice_are_refused(self):
        status, messages = self.write_stubs(libobjc=["library /usr/lib/l.dylib", "a", "b", "a"])
        self.assertNotEqual(status, 0)
        self.assertIn("libobjc.txt:4: a occurs twice", messages)

    def test_with_an_unknown_architecture_are_refused(self):
        status, messages = self.write_stubs(libobjc=["library /usr/lib/l.dylib", "a arm65"])
        self.assertNotEqual(status, 0)
        self.assertIn("libobjc.txt:2: one symbol", messages)


if __name__ == "__main__":
    if not can_be_made():
        print("clang 19 is missing: run 'tools/setup macos'.")
        sys.exit(77)
    unittest.main()
