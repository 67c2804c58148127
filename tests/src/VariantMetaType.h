#ifndef QUANDREL_TESTS_VARIANTMETATYPE_H
#define QUANDREL_TESTS_VARIANTMETATYPE_H

#include "olm/core/variant/Variant.h"

#include <QMetaType>

// For tables of test data.
Q_DECLARE_METATYPE(olm::core::variant::Variant)

#endif
