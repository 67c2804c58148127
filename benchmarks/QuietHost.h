// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_QUIETHOST_H
#define QUANDREL_QUIETHOST_H

#include "olm/core/Vector.h"
#include "tests/src/FakeHost.h"

#include <memory>
#include <string>
#include <unordered_map>

/// The tests' host without its notes of every call: a read costs one look-up by hash.
class QuietHost : public FakeHost
{
public:
    /// Stored arm positions, named Pos1 and so on, with numbers of two and three digits.
    void setPositions(int count, int maximum)
    {
        m_config["num_pos"] = count;
        m_config["num_pos_max"] = maximum;
        for (int i = 0; i < count; ++i) {
            olm::core::Vector<float> values(18);
            for (int element = 0; element < 18; ++element)
                values[element] = static_cast<float>(10 + (i * 18 + element * 7) % 280);
            const std::string name = "pos" + std::to_string(i);
            m_config[name] = values;
            m_config[name + "_name"] = "Pos" + std::to_string(i + 1);
        }
    }

    void registerInput(const char*, bool) override {}
    void registerStateVariable(const char*, bool) override {}
    void registerConfigVariable(const char*, bool) override {}

    Variant simulationDirectExec(const Variant& role, const Variant&) override
    {
        const auto found = answers.find(role.get<SimulationDirectExecRole>());
        return found == answers.end() ? Variant() : found->second;
    }

    QAction* helpAction(const QString&) const override { return m_help.get(); }

    Variant read(Kind, const char* name) const override
    {
        const auto found = m_config.find(name);
        return found == m_config.end() ? Variant() : found->second;
    }

private:
    std::unordered_map<std::string, Variant> m_config;
    const std::unique_ptr<QAction> m_help = std::make_unique<QAction>();
};

#endif
