// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/script/Scene.h"

#include "host/device/Device.h"
#include "host/workbench/script/Stage.h"
#include "host/workbench/window/DeviceView.h"
#include "host/workbench/window/Window.h"

#include <QDir>

#include <algorithm>

namespace host::workbench::script {

using device::trace::Traffic;

Scene::Scene(Stage& stage, const QString& output, const QString& folder)
    : m_stage(stage),
      m_output(output),
      m_folder(folder)
{
}

window::Window& Scene::window() const
{
    return m_stage.window();
}

window::DeviceView& Scene::view() const
{
    return *window().views().at(m_device);
}

device::Device& Scene::device() const
{
    return view().device();
}

bool Scene::choose(const QString& name)
{
    const auto& views = window().views();
    const auto found =
        std::find_if(views.begin(), views.end(),
                     [&](const window::DeviceView* each) { return each->device().name() == name; });
    if (found == views.end())
        return false;
    m_device = static_cast<int>(found - views.begin());
    mark();
    return true;
}

void Scene::begin()
{
    m_device = 0;
    held = {};
    m_mark = 0; // what the plugin did while it was built counts, too
}

Arguments Scene::expand(const Arguments& arguments) const
{
    Arguments expanded;
    const auto all = arguments.all();
    for (auto each = all.begin(); each != all.end(); ++each) {
        for (const QString& value : each.value()) {
            expanded.add(each.key(), QString(value)
                                         .replace("$robot", view().robot())
                                         .replace("$folder", m_folder)
                                         .replace("$output", m_output));
        }
    }
    return expanded;
}

QString Scene::outputFile(const QString& name) const
{
    return QDir(m_output).filePath(name);
}

void Scene::mark()
{
    m_mark = device().traffic().end();
}

Traffic::Number Scene::marked() const
{
    return std::max(m_mark, device().traffic().begin());
}

} // namespace host::workbench::script
