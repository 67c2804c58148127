#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Checks the order of the virtual operations in built objects.

A plugin and its host agree on slots, not on names: a swapped pair of operations compiles, loads
and calls the wrong one. So the orders are read from the virtual tables as the linker left them
(symbols and relocations), never from a header.
"""

import argparse
import re
import subprocess
import sys
from collections import defaultdict

WIDGET_OPERATIONS = [
    "translate()",
    "trans(QString const&) const",
    "helpAction(QString const&) const",
    "helpContext() const",
    "update()",
    "currentLanguage() const",
    "libraryActions(QString const&, QString const&, bool)",
]
UPDATE = "update(plugin::gui::DeviceHistoryBundle const&)"
MESSAGE = "on_messageReceived(plugin::plugin::DataRole, olm::core::variant::Variant const&)"
NOTIFICATIONS = [UPDATE, "connected()", "disconnected()", MESSAGE]
CONNECTION_NOTIFICATIONS = [UPDATE, "connectDevice()", *NOTIFICATIONS[1:]]


def variable_operations(kind):
    variant = "olm::core::variant::Variant const&"
    return [
        f"read{kind}(char const*) const",
        f"write{kind}(char const*, {variant})",
        f"get{kind}Property(char const*, char const*) const",
        f"set{kind}Property(char const*, char const*, {variant})",
    ]


DEVICE_OPERATIONS = [
    *variable_operations("Input"),
    *variable_operations("Output"),
    *variable_operations("StateVariable"),
    *variable_operations("ConfigVariable"),
    "beginTransaction(QString const&)",
    "endTransaction()",
    "setValueChangedAsync()",
    "connected()",
    "disconnected()",
    MESSAGE,
    UPDATE,
]
REGISTRATIONS = [
    "registerInput(char const*, bool)",
    None,  # one that the plugin does not use
    "registerStateVariable(char const*, bool)",
    "registerConfigVariable(char const*, bool)",
]
DESTRUCTORS = ["~", "~"]


def operation(name):
    """The operation's name and arguments, without the class and "non-virtual thunk to"."""
    head, bracket, arguments = name.partition("(")
    member = head.rsplit("::", 1)[-1]
    return "~" if member.startswith("~") else member + bracket + arguments


def owner(name):
    return name.partition("(")[0].removeprefix("non-virtual thunk to ").rpartition("::")[0]


class SharedObject:
    """The virtual tables of one shared library or executable."""

    def __init__(self, path):
        self.path = path
        self.names = defaultdict(set)  # of the functions and type records, by address
        self.tables = {}  # class name: (address, size)
        self.slots = {}  # address of a word: the names of what it points to
        self.read_symbols()
        self.read_relocations()

    def readelf(self, *options):
        return subprocess.run(["readelf", "-W", *options, self.path], check=True, text=True,
                              stdout=subprocess.PIPE).stdout.splitlines()

    def read_symbols(self):
        fields = [line.split() for line in self.readelf("-s", "--sym-base=10")]
        symbols = [f for f in fields if len(f) >= 8 and f[0].endswith(":") and f[6] != "UND"
                   and re.fullmatch("[0-9a-f]{16}", f[1])]
        readable = demangled([f[7].partition("@")[0] for f in symbols])
        for symbol, name in zip(symbols, readable):
            address = int(symbol[1], 16)
            if name.startswith("vtable for "):
                self.tables[name.removeprefix("vtable for ")] = (address, int(symbol[2], 0))
            elif symbol[3] != "SECTION":
                self.names[address].add(name)

    def read_relocations(self):
        entries = []
        for line in self.readelf("-r"):
            match = re.match(r"([0-9a-f]{16}) +[0-9a-f]{16} (R_\w+) +(.*)", line)
            if not match:
                continue
            place, kind, rest = match.groups()
            if kind.endswith("_RELATIVE"):
                self.slots[int(place, 16)] = self.names.get(int(rest, 16), set()) or {"?"}
            elif kind.endswith("_64"):
                entries.append((int(place, 16), rest.split()[1].partition("@")[0]))
        for (place, _), name in zip(entries, demangled([name for _, name in entries])):
            self.slots[place] = {name}

    def groups(self, name):
        """The operations of each base's part of the table, each a list of sets of names."""
        if name not in self.tables:
            raise LookupError(f"{self.path}: no virtual table of {name}")
        start, size = self.tables[name]
        groups = []
        group = None
        for address in range(start, start + size, 8):
            target = self.slots.get(address)
            if target is None:  # the offset to the top of the object ends the part before it
                group = None
            elif any(n.startswith("typeinfo for ") for n in target):
                group = []
                groups.append(group)
            elif group is not None:
                group.append(target)
        if not groups:
            raise LookupError(f"{self.path}: the virtual table of {name} is not readable")
        return groups


def demangled(names):
    return subprocess.run(["c++filt"], check=True, text=True, input="\n".join(names),
                          stdout=subprocess.PIPE).stdout.split("\n")[:len(names)]


class Checker:
    def __init__(self):
        self.failures = []
        self.compared = 0

    def fail(self, text):
        self.failures.append(text)

    def compare(self, what, slots, expected, first=0, owners=None):
        """`owners` has the class that must implement each operation; None where any may."""
        if len(slots) != len(expected):
            self.fail(f"{what}: {len(slots)} operations, expected {len(expected)}")
        for index, (names, wanted) in enumerate(zip(slots, expected)):
            self.compared += 1
            matching = [n for n in names if wanted is None or operation(n) == wanted]
            shown = " or ".join(sorted(names))
            if not matching:
                self.fail(f"{what}: slot {first + index} is {shown}, expected {wanted}")
            elif owners and owners[index] and owners[index] not in map(owner, matching):
                self.fail(f"{what}: slot {first + index} is {shown}, expected {owners[index]}'s")


def check_base_widget(checker, framework, base_slots):
    """The operations of every plugin's widget, directly after those of a QWidget."""
    for name in ("plugin::gui::PluginWidget", "plugin::gui::DeviceWidget"):
        slots = framework.groups(name)[0]
        checker.compare(name, slots[base_slots:], WIDGET_OPERATIONS, base_slots,
                        ["plugin::gui::PluginWidget"] * len(WIDGET_OPERATIONS))
    parts = framework.groups("plugin::gui::DeviceWidget")
    if len(parts) != 4:
        checker.fail(f"plugin::gui::DeviceWidget: {len(parts)} bases with operations, expected 4")
    checker.compare("plugin::gui::DeviceWidget, third base", parts[-1], DESTRUCTORS)


def check_widgets(checker, plugin, base_slots, required):
    """Every device widget of the plugin, found by the operation that none overrides."""
    found = []
    for name in sorted(plugin.tables):
        if name.startswith("plugin::gui::"):
            continue  # the framework's own, checked above
        parts = plugin.groups(name)
        first = base_slots + len(WIDGET_OPERATIONS)
        if not any("plugin::gui::PluginWidget::trans(QString const&) const" in slot
                   for slot in parts[0]):
            continue
        found.append(name)
        connects = name in ("Quandrel", "Toolbar")
        notifications = CONNECTION_NOTIFICATIONS if connects else NOTIFICATIONS
        implementer = "Quandrel" if connects else name
        # Only the texts are each widget's own, and the help's context the connection's.
        owners = ["plugin::gui::PluginWidget"] * len(WIDGET_OPERATIONS)
        owners[WIDGET_OPERATIONS.index("translate()")] = implementer
        if connects:
            owners[WIDGET_OPERATIONS.index("helpContext() const")] = implementer
        checker.compare(name, parts[0][base_slots:first], WIDGET_OPERATIONS, base_slots, owners)
        checker.compare(name, parts[0][first:], notifications, first,
                        [implementer] * len(notifications))
        if len(parts) != 4:
            checker.fail(f"{name}: {len(parts)} bases with operations, expected 4")
            continue
        checker.compare(f"{name}, device interface", parts[2], DESTRUCTORS + DEVICE_OPERATIONS)
        checker.compare(f"{name}, third base", parts[3], DESTRUCTORS)
    for name in required:
        if name not in found:
            checker.fail(f"{plugin.path}: no device widget {name}")
    return found


def check_factory(checker, plugin):
    slots = plugin.groups("PluginGuiInterface")[0]
    arguments = "(char const*, char const*, plugin::gui::{}Delegate&) const"
    # Where a destructor adds nothing to the base class's, clang takes that one.
    checker.compare(
        "PluginGuiInterface", slots,
        [*DESTRUCTORS, "init() const", "deinit() const",
         "loadUnitWidget" + arguments.format("Unit"),
         "loadDeviceWidget" + arguments.format("Device")], 0,
        [None, None, "plugin::plugin::Interface", "plugin::plugin::Interface",
         "plugin::gui::Interface", "PluginGuiInterface"])


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--qt-widgets", required=True, help="the Qt library that has QWidget")
    parser.add_argument("--framework", required=True, help="the host's framework library")
    parser.add_argument("--plugin", required=True, help="the plugin's library")
    parser.add_argument("--delegate", required=True, nargs=2, metavar=("FILE", "CLASS"),
                        help="an object with a class that implements the device delegate")
    parser.add_argument("--widget", action="append", default=[],
                        help="a device widget that the plugin must have")
    options = parser.parse_args()

    checker = Checker()
    try:
        base_slots = len(SharedObject(options.qt_widgets).groups("QWidget")[0])
        framework = SharedObject(options.framework)
        plugin = SharedObject(options.plugin)
        file, delegate = options.delegate
        check_base_widget(checker, framework, base_slots)
        checker.compare("plugin::gui::DeviceInterface",
                        framework.groups("plugin::gui::DeviceInterface")[0],
                        DESTRUCTORS + DEVICE_OPERATIONS)
        checker.compare(f"{delegate}, as a delegate",
                        SharedObject(file).groups(delegate)[0][:6], DESTRUCTORS + REGISTRATIONS)
        check_factory(checker, plugin)
        found = check_widgets(checker, plugin, base_slots, options.widget)
    except LookupError as error:
        print(error.args[0], file=sys.stderr)
        return 1
    for failure in checker.failures:
        print(failure, file=sys.stderr)
    print(f"{checker.compared} slots compared; QWidget has {base_slots}; "
          f"device widgets: {', '.join(found)}")
    return 1 if checker.failures else 0


if __name__ == "__main__":
    sys.exit(main())
