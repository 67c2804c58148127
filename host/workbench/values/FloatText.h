// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef HOST_WORKBENCH_VALUES_FLOATTEXT_H
#define HOST_WORKBENCH_VALUES_FLOATTEXT_H

#include <QByteArray>

namespace host::workbench::values {

/// The shortest text that reads back as the same float, in every locale: "0.1", not
/// "0.10000000149011612"; "inf", "-inf" and "nan" where it is not a number.
QByteArray floatText(float value);

} // namespace host::workbench::values

#endif
