#!/usr/bin/env python3
# SPDX-FileCopyrightText: the Quandrel device GUI authors
# SPDX-License-Identifier: BSD-3-Clause
"""Builds the plugin's sources, copied elsewhere, against the SDK of another host.

Usage: second_sdk_test.py --source FOLDER ... ; all options are needed, as CTest passes them.

The SDK is made here, of the contract between plugins and hosts alone: the paths of its headers, and the
names that they declare. It has no other part of our own host's headers, and a library whose functions
answer the default of their type. So a source that uses more of our host than the contract has does not
build, and neither does one that includes it by another path.
"""

import argparse
import ctypes
import re
import shutil
import subprocess
import tempfile
from pathlib import Path

VARIANT = "olm::core::variant::Variant"
STORAGE = """template <class T>
class {0}Impl : public std::{1}<T>
{{
}};
"""
SHARED_BASE = """template <class Impl>
class SharedBase
{
public:
    SharedBase() : m_impl(new Impl) {}
    void detach() {}

protected:
    boost::shared_ptr<Impl> m_impl;
};
"""
VECTOR = STORAGE.format("Vector", "vector") + """
template <class T>
class Vector : public SharedBase<VectorImpl<T> >
{
public:
    Vector() {}
    explicit Vector(unsigned int size) { resize(size); }
    virtual ~Vector() {}
    unsigned int size() const { return this->m_impl->size(); }
    bool isEmpty() const { return this->m_impl->empty(); }
    void resize(unsigned int size) { this->m_impl->resize(size); }
    void append(const T& value) { this->m_impl->push_back(value); }
    T& operator[](int i) { return (*this->m_impl)[i]; }
    const T& operator[](int i) const { return (*this->m_impl)[i]; }
    const T* data() const { return this->m_impl->data(); }
    bool operator==(const Vector& other) const { return *this->m_impl == *other.m_impl; }
    bool operator!=(const Vector& other) const { return !(*this == other); }
};
"""
LIST = STORAGE.format("List", "list") + """
template <class T>
class List : public SharedBase<ListImpl<T> >
{
public:
    typedef typename std::list<T>::const_iterator const_iterator;
    List() {}
    virtual ~List() {}
    unsigned int size() const { return this->m_impl->size(); }
    bool isEmpty() const { return this->m_impl->empty(); }
    void append(const T& value) { this->m_impl->push_back(value); }
    const_iterator begin() const { return this->m_impl->begin(); }
    const_iterator end() const { return this->m_impl->end(); }
    bool operator==(const List& other) const { return *this->m_impl == *other.m_impl; }
    bool operator!=(const List& other) const { return !(*this == other); }
};
"""
STRING_LIST = """class StringList : public List<std::string>
{
};
"""
LASER_SCAN_MESSAGE = """class LaserScanMessage
{
public:
    std::uint32_t sequenceNumber, timeStamp;
    std::string frameId;
    float minimumAngle, maximumAngle, angleIncrement, timeIncrement, scanTime, minimumRange, maximumRange;
    Vector<float> ranges, intensities;

    virtual ~LaserScanMessage() {}
    virtual unsigned int encodedDataSize() const { return 0; }
    virtual unsigned int encode(char*) const { return 0; }
    virtual bool operator==(const LaserScanMessage&) const { return true; }
    virtual bool operator!=(const LaserScanMessage&) const { return false; }
};
"""
VARIANT_CLASS = """struct Id
{
    static unsigned int g_id;
};

class Variant
{
public:
    Variant() : m_id(Id::g_id++) {}
    template <class T>
    Variant(const T& value) : m_value(new boost::any(value)), m_id(Id::g_id++) {}
    template <class T>
    T get(bool* = nullptr) const { return T(); }
OPERATIONS
private:
    boost::shared_ptr<boost::any> m_value;
    unsigned int m_id;
};
"""
DATA_ROLE = """enum DataRole : int
{
};
"""


def variable_operations(kind):
    return [f"virtual {VARIANT} read{kind}(const char* name) const",
            f"virtual void write{kind}(const char* name, const {VARIANT}& value)",
            f"virtual {VARIANT} get{kind}Property(const char* name, const char* property) const",
            f"virtual void set{kind}Property(const char* name, const char* property, "
            f"const {VARIANT}& value)"]


def definition(scope, operation):
    """Of an operation that does nothing and answers the default of its type."""
    kind, name, rest = re.fullmatch(r"(?:virtual |explicit )*(.*[ &*])?(~?\w+)(\([^()]*\)(?: const)?)",
                                    operation).groups()
    kind = (kind or "").strip()
    body = "{}" if kind in ("", "void") else "{ return {}; }"
    if kind.endswith("&"):
        body = f"{{ static {kind[:-1]} value; return value; }}"
    return f"{kind} {scope}{name}{re.sub(' = nullptr', '', rest)} {body}\n"


def functions(scope, *operations):
    """Their declarations and their definitions."""
    return ("".join(f"    {each};\n" for each in operations),
            "".join(definition(scope, each) for each in operations
                    if not each.startswith("using ") and not each.endswith("= 0")))


def class_of(name, bases, *members):
    """A class's declaration, and the definitions of its operations, which are all public."""
    declarations, definitions = functions(f"{name}::", *members)
    return f"class {name} {bases}\n{{\npublic:\n{declarations}}};\n", definitions


KINDS = ("Input", "Output", "StateVariable", "ConfigVariable")
VARIANT_DECLARED, VARIANT_DEFINED = functions(
    "Variant::", "bool isEmpty() const", "const boost::any& any() const", "unsigned int id() const",
    "int toInt(bool* ok = nullptr) const", "unsigned int toUInt(bool* ok = nullptr) const",
    "bool toBool(bool* ok = nullptr) const", "std::string toString(bool* ok = nullptr) const",
    "StringList toStringList(bool* ok = nullptr) const")

# Of each header, in an order in which each can be included: its path, what it includes, what it declares
# in the namespace of its folder, and what the library defines of that.
HEADERS = {
    "olm/core/SharedBase.h": ("<boost/shared_ptr.hpp>", SHARED_BASE, ""),
    "olm/core/Vector.h": ('"olm/core/SharedBase.h" <vector>', VECTOR, ""),
    "olm/core/List.h": ('"olm/core/SharedBase.h" <list>', LIST, ""),
    "olm/core/StringList.h": ('"olm/core/List.h" <string>', STRING_LIST, ""),
    "olm/core/LaserScanMessage.h": ('"olm/core/Vector.h" <cstdint> <string>', LASER_SCAN_MESSAGE, ""),
    "olm/core/variant/Variant.h": (
        '"olm/core/StringList.h" <boost/any.hpp> <boost/shared_ptr.hpp>',
        VARIANT_CLASS.replace("OPERATIONS", VARIANT_DECLARED),
        "unsigned int Id::g_id = 0;\n" + VARIANT_DEFINED),
    "olm/qt/convert.h": ('"olm/core/StringList.h" <QStringList>', *functions(
        "", "QStringList convert(const olm::core::StringList& list)",
        "olm::core::StringList convert(const QStringList& list)")),
    "olm/qt/log/Log.h": ("<QTextDocument>", *class_of(
        "Log", ": public QTextDocument",
        "void postLog(const QString& text, int level)", "void postEmptyLine()", "void clear()")),
    "olm/qt/log/View.h": ("<QAction> <QTextEdit>", *class_of(
        "View", ": public QTextEdit",
        "explicit View(QWidget* parent)", "void setHelpAction(QAction* action)")),
    "plugin/plugin/DataRole.h": ("", DATA_ROLE, ""),
    "plugin/plugin/PluginInfo.h": ("", *class_of(
        "PluginInfo", "",
        "PluginInfo(const char* vendor, const char* name, const char* description, int, int, int, int)")),
    "plugin/plugin/Interface.h": ('"plugin/plugin/PluginInfo.h"', *class_of(
        "Interface", "",
        "Interface()", "explicit Interface(const PluginInfo& info)", "virtual ~Interface()",
        "virtual void init() const", "virtual void deinit() const")),
    "plugin/gui/UnitDelegate.h": ("", *class_of("UnitDelegate", "", "virtual ~UnitDelegate()")),
    "plugin/gui/DeviceDelegate.h": ("", *class_of(
        "DeviceDelegate", "", "virtual ~DeviceDelegate()",
        *(f"virtual void register{kind}(const char* name, bool on) = 0" for kind in KINDS))),
    "plugin/gui/VariableHistoryBuffer.h": ('"olm/core/variant/Variant.h"', *class_of(
        "VariableHistoryBuffer", "", f"const {VARIANT}& last() const")),
    "plugin/gui/HistoryBundle.h": ('"plugin/gui/VariableHistoryBuffer.h"', *class_of(
        "HistoryBundle", "",
        *(f"const VariableHistoryBuffer* get{kind}History(const char* name) const" for kind in KINDS))),
    "plugin/gui/DeviceHistoryBundle.h": ('"plugin/gui/HistoryBundle.h"', *class_of(
        "DeviceHistoryBundle", ": public HistoryBundle")),
    "plugin/gui/PluginWidget.h": ("<QAction> <QList> <QString> <QWidget>", *class_of(
        "PluginWidget", ": public QWidget",
        "virtual void translate()", "virtual QString trans(const QString& text) const",
        "virtual QAction* helpAction(const QString& context) const",
        "virtual QString helpContext() const", "virtual void update()",
        "virtual QString currentLanguage() const",
        "virtual QList<QAction*> libraryActions(const QString&, const QString&, bool)")),
    "plugin/gui/DeviceInterface.h": (
        '"olm/core/variant/Variant.h" "plugin/gui/DeviceHistoryBundle.h" "plugin/plugin/DataRole.h" '
        '<QString>', *class_of(
            "DeviceInterface", "", "virtual ~DeviceInterface()",
            *(operation for kind in KINDS for operation in variable_operations(kind)),
            "virtual void beginTransaction(const QString& name)", "virtual void endTransaction()",
            "virtual void setValueChangedAsync()", "virtual void connected()",
            "virtual void disconnected()",
            f"virtual void on_messageReceived(::plugin::plugin::DataRole role, const {VARIANT}& value)",
            "virtual void update(const DeviceHistoryBundle& bundle)",
            "bool connectDevice()", "bool disconnectDevice()")),
    "plugin/gui/DeviceWidget.h": (
        '"plugin/gui/DeviceDelegate.h" "plugin/gui/DeviceInterface.h" "plugin/gui/PluginWidget.h"',
        *class_of(
            "DeviceWidget", ": public PluginWidget, public DeviceInterface",
            "using PluginWidget::update", "using DeviceInterface::update",
            "DeviceWidget(DeviceDelegate& delegate, QWidget* parent)",
            f"{VARIANT} simulationDirectExec(const {VARIANT}& role, const {VARIANT}& value)")),
    "plugin/gui/Interface.h": (
        '"plugin/gui/DeviceWidget.h" "plugin/gui/UnitDelegate.h" "plugin/plugin/Interface.h"', *class_of(
            "Interface", ": public ::plugin::plugin::Interface",
            "explicit Interface(const ::plugin::plugin::PluginInfo& info)", "virtual ~Interface()",
            "virtual PluginWidget* loadUnitWidget(const char*, const char*, UnitDelegate&) const",
            "virtual DeviceWidget* loadDeviceWidget(const char*, const char*, DeviceDelegate&) const")),
}


def in_namespaces(path, text):
    names = Path(path).parent.parts
    return "".join(f"namespace {name} {{\n" for name in names) + text + "}" * len(names) + "\n"


def make_sdk(folder):
    """The headers, and the source of the library."""
    library = []
    for path, (includes, declared, defined) in HEADERS.items():
        header = folder / "include" / path
        header.parent.mkdir(parents=True, exist_ok=True)
        header.write_text("#pragma once\n" + "".join(f"#include {each}\n" for each in includes.split()) +
                          in_namespaces(path, declared), encoding="utf-8")
        library += [f'#include "{path}"\n', in_namespaces(path, defined)]
    (folder / "library.cpp").write_text("".join(library), encoding="utf-8")


def run(*command):
    result = subprocess.run([str(part) for part in command], capture_output=True, text=True, check=False)
    if result.returncode != 0:
        raise SystemExit(f"{command} ended with {result.returncode}:\n{result.stdout}{result.stderr}")
    return result.stdout


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", type=Path, required=True)
    for text in ("cmake", "compiler", "generator", "make", "qt"):
        parser.add_argument(f"--{text}", required=True)
    options = parser.parse_args()

    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        make_sdk(folder)
        library = folder / "libsecond_host.so"
        flags = run("pkg-config", "--cflags", "--libs", f"Qt{options.qt}Widgets").split()
        run(options.compiler, "-std=c++17", "-shared", "-fPIC", "-I", folder / "include",
            folder / "library.cpp", "-o", library, *flags)
        shutil.copytree(options.source / "src", folder / "plugin", ignore=shutil.ignore_patterns("platform"))
        run(options.cmake, "-S", folder / "plugin", "-B", folder / "build", "-G", options.generator,
            f"-DCMAKE_MAKE_PROGRAM={options.make}", f"-DCMAKE_CXX_COMPILER={options.compiler}",
            "-DCMAKE_UNITY_BUILD=ON", "-DCMAKE_CXX_FLAGS=-O0",
            "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,--no-undefined", f"-DQUANDREL_QT={options.qt}",
            f"-DPLATFORM_INCLUDE_DIR={folder / 'include'}", f"-DPLATFORM_LIBRARIES={library}")
        run(options.cmake, "--build", folder / "build")

        plugin = ctypes.CDLL(str(folder / "build/libdevice_quandrel_gui.so"))
        interface = ctypes.c_void_p()
        plugin.pluginGuiInterface(ctypes.byref(interface))
        assert interface, "the plugin handed out no interface object"


if __name__ == "__main__":
    main()
