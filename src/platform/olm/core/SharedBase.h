// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef OLM_CORE_SHAREDBASE_H
#define OLM_CORE_SHAREDBASE_H

#ifndef Q_MOC_RUN // Qt 4's moc cannot read Boost
#include <boost/shared_ptr.hpp>
#endif

namespace olm {
namespace core {

/// A shared implementation with copy on write: copies share it, whoever is about to change it
/// calls detach() first. Never without an implementation.
template <class Impl>
class SharedBase
{
public:
    SharedBase() : m_impl(new Impl) {}

    explicit SharedBase(const Impl& impl) : m_impl(new Impl(impl)) {}

    /// Makes this object the only user of its implementation. The copy's storage holds exactly
    /// the elements that are there.
    void detach()
    {
        if (m_impl.use_count() != 1)
            m_impl = boost::shared_ptr<Impl>(new Impl(*m_impl));
    }

protected:
    Impl& impl() { return *m_impl; }

    const Impl& impl() const { return *m_impl; }

private:
    boost::shared_ptr<Impl> m_impl;
};

} // namespace core
} // namespace olm

#endif
