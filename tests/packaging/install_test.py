#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Installs the build into a folder of its own and uses what is there."""

import contextlib
import functools
import os
import re
import subprocess
import sys
import tempfile
import time
import unittest
import unittest.mock
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1] / "atspi"))
from installation import DEADLINE, install, main, options, run  # noqa: E402  the folder comes first
from screen import Atspi, Desktop, find, wait_for  # noqa: E402

PROGRAMS = ("device-plugin-check", "device-workbench", "quandrel-robot")
ICON_SIDES = (16, 22, 24, 32, 48, 64, 128, 256)


def files(prefix):
    """All files and links below the prefix."""
    return {path.relative_to(prefix).as_posix() for path in prefix.rglob("*")
            if path.is_symlink() or not path.is_dir()}


def expected():
    """The files of each component."""
    lib = options.libdir
    abi = ".".join(options.version.split(".")[:2])
    platform = options.source / "src/platform"
    return {
        "plugin": {f"{lib}/quandrel/plugins/libdevice_quandrel_gui.so",
                   "share/metainfo/org.example.quandrel.device_plugin.metainfo.xml",
                   "share/doc/quandrel-device-plugin/copyright"},
        "library": {f"{lib}/libplugin_framework.so.{abi}",
                    f"{lib}/libplugin_framework.so.{options.version}",
                    f"share/doc/libplugin-framework{abi}/copyright"},
        "runtime": {
            "lib/systemd/system/quandrel-robot@.service",
            "share/applications/device-workbench.desktop",
            "share/doc/quandrel-workbench/copyright",
            "share/doc/quandrel-workbench/examples/robot.conf",
            "share/icons/hicolor/scalable/apps/device-workbench.svg",
            "share/metainfo/org.example.quandrel.workbench.metainfo.xml",
            "share/quandrel/tour.script",
            "share/quandrel/walk.log",
            *(f"share/icons/hicolor/{side}x{side}/apps/device-workbench.png" for side in ICON_SIDES),
            *(file for program in PROGRAMS
              for file in (f"bin/{program}", f"share/bash-completion/completions/{program}",
                           f"share/man/man1/{program}.1"))},
        "development": {
            f"{lib}/libplugin_framework.so",
            f"{lib}/pkgconfig/quandrel-plugin.pc",
            f"{lib}/cmake/Quandrel/quandrel-config.cmake",
            f"{lib}/cmake/Quandrel/quandrel-config-version.cmake",
            f"{lib}/cmake/Quandrel/quandrel-targets.cmake",
            f"{lib}/cmake/Quandrel/quandrel-targets-{options.configuration}.cmake",
            "include/quandrel/framework/plugin/gui/DeviceHost.h",
            "include/quandrel/framework/plugin/gui/HistoryBundleContent.h",
            "include/quandrel/framework/plugin/gui/HostCall.h",
            "share/doc/libquandrel-dev/copyright",
            "share/doc/libquandrel-dev/examples/minimal-plugin/CMakeLists.txt",
            "share/doc/libquandrel-dev/examples/minimal-plugin/Lamp.cpp",
            *(f"include/quandrel/platform/{header.relative_to(platform).as_posix()}"
              for header in platform.rglob("*.h"))},
    }


class InstallTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name).resolve()
        cls.prefix = cls.folder / "prefix"
        install(cls.prefix)

    def libraries(self, file):
        """The libraries that the system's loader finds for an installed file, by name."""
        return dict(re.findall(r"^\s*(\S+) => (\S+)", run("ldd", file), re.MULTILINE))

    def assert_lists(self, found, wanted):
        self.assertEqual((sorted(wanted - found), sorted(found - wanted)), ([], []),
                         "the first list is missing, the second is not expected")

    def test_each_component_has_its_files_and_all_together_are_everything(self):
        for component, wanted in expected().items():
            with self.subTest(component):
                folder = self.folder / component
                install(folder, "--component", component)
                self.assert_lists(files(folder), wanted)
        self.assert_lists(files(self.prefix), set().union(*expected().values()))

    def test_the_programs_start(self):
        for program in PROGRAMS:
            self.assertEqual(run(self.prefix / "bin" / program, "--version"),
                             f"{program} {options.version}\n")

    def test_the_workbench_loads_the_installed_plugin(self):
        plugin = self.prefix / options.libdir / "quandrel/plugins/libdevice_quandrel_gui.so"
        home = {f"XDG_{kind}_HOME": str(self.folder / "home") for kind in ("DATA", "STATE", "CONFIG")}
        workbench = subprocess.Popen([self.prefix / "bin/device-workbench", "--no-robot"],
                                     env={**os.environ, **home})
        try:
            end = time.monotonic() + DEADLINE
            while f" {plugin}\n" not in Path(f"/proc/{workbench.pid}/maps").read_text(encoding="utf-8"):
                self.assertIsNone(workbench.poll(), "the workbench ended")
                self.assertLess(time.monotonic(), end, f"the workbench did not load {plugin}")
                time.sleep(0.05)
        finally:
            workbench.kill()
            workbench.wait()

    def test_the_framework_is_found_in_the_prefix_and_by_its_version(self):
        abi = ".".join(options.version.split(".")[:2])
        folder = self.prefix / options.libdir
        programs = (self.prefix / "bin" / name for name in ("device-plugin-check", "device-workbench"))
        for file in (*programs, folder / "quandrel/plugins/libdevice_quandrel_gui.so"):
            found = {name: Path(path).resolve().parent for name, path in self.libraries(file).items()
                     if name.startswith("libplugin_framework")}
            self.assertEqual(found, {f"libplugin_framework.so.{abi}": folder}, file)

    def test_a_licence_comes_with_each_component_and_the_workbench_names_the_gpl(self):
        for file in (self.prefix / "share/doc").glob("*/copyright"):
            text = file.read_text(encoding="utf-8")
            self.assertIn("\n Redistribution and use in source and binary forms", text)
            self.assertNotRegex(text, re.compile("^[^A-Z \n]", re.MULTILINE), "only fields begin a line")
            self.assertEqual("GPL-3" in text, file.parent.name == "quandrel-workbench", file)

    @classmethod
    def build(cls, source, name):
        """What somebody else makes of what is installed, and what CMake said about it."""
        build = cls.folder / name
        said = run(options.cmake, "-S", source, "-B", build, "-G", options.generator,
                   f"-DCMAKE_MAKE_PROGRAM={options.make}", f"-DCMAKE_CXX_COMPILER={options.compiler}",
                   f"-DCMAKE_PREFIX_PATH={cls.prefix}", f"-DQUANDREL_VERSION={options.version}")
        run(options.cmake, "--build", build)
        return build, said

    @classmethod
    @functools.cache
    def example(cls):
        """The example's plugin."""
        return cls.build(options.source / "examples/minimal-plugin", "example")[0] / "liblamp.so"

    def test_others_build_a_host_that_loads_the_example(self):
        build, said = self.build(Path(__file__).parent / "outside", "outside")
        self.assertIn(f"plugins: {self.prefix / options.libdir}/quandrel/plugins\n", said)
        self.assertEqual(run(build / "host", self.example()), "Example Works Lamp\n")

    def test_the_installed_check_passes_the_example_on_a_few_levels(self):
        said = run(self.prefix / "bin/device-plugin-check", "--level", "1", self.example())
        self.assertRegex(said, r"\npassed: liblamp\.so: ")

    def test_the_installed_workbench_shows_the_example_and_stores_what_is_set_in_it(self):
        plugin = self.example()
        with contextlib.ExitStack() as stack:
            stack.enter_context(unittest.mock.patch.dict(os.environ))
            window = Desktop(stack).window(self.prefix / "bin/device-workbench", "--no-robot",
                                           "--plugin", plugin, "--device", "Lamp", "--language", "en")
            slider = wait_for(lambda: find(window, Atspi.Role.SLIDER, "Brightness"), "the slider")
            Atspi.Value.set_current_value(slider, 70)

            def is_stored():
                files = Path(os.environ["XDG_DATA_HOME"]).rglob("Lamp.json")
                return any(re.search(r'"brightness"[^}]*"value": 70\b', file.read_text(encoding="utf-8"))
                           for file in files)

            wait_for(is_stored, "the brightness among the device's settings")

    def test_the_guide_has_the_examples_files(self):
        guide = (options.source / "docs/writing-a-plugin.md").read_text(encoding="utf-8")
        for file in (options.source / "examples/minimal-plugin").iterdir():
            _, _, text = file.read_text(encoding="utf-8").partition("\n\n")  # after the licence
            self.assertTrue(f"\n{text}```\n" in guide, f"the guide has another {file.name}")

    def test_pkg_config_tells_where_the_headers_and_the_library_are(self):
        def tells(flag):
            path = self.prefix / options.libdir / "pkgconfig"
            return run("pkg-config", flag, "quandrel-plugin", PKG_CONFIG_PATH=str(path)).split()

        headers = [Path(flag[2:]) for flag in tells("--cflags") if flag.startswith("-I")]
        for header in ("plugin/gui/DeviceWidget.h", "QWidget"):
            self.assertTrue(any((folder / header).is_file() for folder in headers),
                            f"no {header} in {headers}")
        libraries = tells("--libs")
        self.assertIn("-lplugin_framework", libraries)
        self.assertTrue(any((Path(flag[2:]) / "libplugin_framework.so").is_file()
                            for flag in libraries if flag.startswith("-L")), libraries)


if __name__ == "__main__":
    main()
