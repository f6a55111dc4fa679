"""A small bundle that passes every check, with a program that does nothing, for tests to damage."""

import pathlib
import subprocess

PROJECT = pathlib.Path(__file__).resolve().parents[3]
PACKAGING = PROJECT / "packaging/macos"
LLVM = pathlib.Path("/usr/lib/llvm-19/bin")
BACKEND = "Resources/StagehopperBackend-arm64"

# The program uses each library that it loads, and fills FILLER bytes.
PROGRAM = """
extern int getpid(void);
extern void* objc_getClass(const char*);
const char filler[FILLER] = {1};
int main(void) { return getpid() + (objc_getClass(NAME) != 0) + filler[getpid() % FILLER]; }
"""


def can_be_made():
    return (LLVM / "clang").exists() and (LLVM / "ld64.lld").exists()


class SampleBundle:
    """Creates bundles in the test's own folder; their common parts are created once."""

    def __init__(self, folder):
        self.folder = folder
        self.sdk = folder / "sdk"
        lists = folder / "lists"
        lists.mkdir()
        (lists / "libSystem.txt").write_text(
            "library /usr/lib/libSystem.B.dylib\ngetpid\n")
        (lists / "libobjc.txt").write_text("library /usr/lib/libobjc.A.dylib\nobjc_getClass\n")
        for framework, version in (("AppKit", "C"), ("WebKit", "A")):
            (lists / f"{framework}.txt").write_text(
                f"library /System/Library/Frameworks/{framework}.framework/Versions/{version}/"
                f"{framework}\n")
        self.sdk.mkdir()
        (self.sdk / "SDKSettings.json").write_text(
            '{"Version":"14.0","MaximumDeploymentTarget":"14.0.99"}')
        subprocess.run([PROJECT / "tools/macos-stubs", lists, self.sdk], check=True)
        self.icon = folder / "Stagehopper.icns"
        subprocess.run([PACKAGING / "make-icon", PACKAGING / "Stagehopper.svg", self.icon],
                       check=True)
        self.source = folder / "program.c"
        self.source.write_text(PROGRAM)

    def compile(self, output, architecture, name, filler, frameworks):
        subprocess.run(
            [LLVM / "clang", f"--target={architecture}-apple-macos12.0", "-isysroot", self.sdk,
             f'-DNAME="{name}"', f"-DFILLER={filler}", "-Os", self.source, "-o", output,
             "-fuse-ld=lld", "-Wl,-adhoc_codesign,-fixup_chains", "-lobjc",
             *(word for framework in frameworks for word in ("-framework", framework))],
            check=True)

    def make(self, app, architectures, filler=6000, frameworks=("AppKit", "WebKit")):
        """Creates a signed bundle with two files as the pages, one of them in a folder."""
        contents = app / "Contents"
        for folder in ("MacOS", "Resources/third-party", "Resources/en.lproj"):
            (contents / folder).mkdir(parents=True)
        info = (PACKAGING / "Info.plist.in").read_text(encoding="utf-8")
        for name, value in {"PROJECT_VERSION": "1.2.3", "CMAKE_OSX_DEPLOYMENT_TARGET": "12.0",
                            "STAGEHOPPER_COPYRIGHT": "Copyright © 2026"}.items():
            info = info.replace(f"@{name}@", value)
        (contents / "Info.plist").write_text(info, encoding="utf-8")
        (contents / "PkgInfo").write_text("APPL????")
        (contents / "Resources/panel.html").write_text("<!doctype html><title>Panel</title>")
        (contents / "Resources/third-party/code.js").write_text("'use strict';")
        (contents / "Resources/en.lproj/InfoPlist.strings").write_text('"A" = "B";')
        (contents / "Resources/Stagehopper.icns").write_bytes(self.icon.read_bytes())
        for name in ("MacOS/Stagehopper", BACKEND):
            parts = []
            for architecture in architectures:
                parts.append(self.folder / architecture)
                self.compile(parts[-1], architecture, name, filler,
                             () if name == BACKEND else frameworks)
            subprocess.run([LLVM / "llvm-lipo", "-create", *parts, "-output", contents / name]
                           if len(parts) > 1 else ["cp", parts[0], contents / name], check=True)
        sign(app)


def sign(app):
    subprocess.run([PACKAGING / "sign-bundle", app], check=True)


def verify(app, *architectures):
    """Returns the exit status and the output."""
    result = subprocess.run([PACKAGING / "verify-bundle", app, *architectures],
                            capture_output=True, text=True, check=False)
    return result.returncode, result.stdout + result.stderr
