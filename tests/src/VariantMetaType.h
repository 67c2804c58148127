// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_TESTS_VARIANTMETATYPE_H
#define QUANDREL_TESTS_VARIANTMETATYPE_H

#include "olm/core/variant/Variant.h"

#include <QMetaType>

// For tables of test data.
Q_DECLARE_METATYPE(olm::core::variant::Variant)

#endif
