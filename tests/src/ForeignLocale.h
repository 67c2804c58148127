// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#ifndef QUANDREL_FOREIGNLOCALE_H
#define QUANDREL_FOREIGNLOCALE_H

#include <QLocale>

#include <clocale>
#include <locale>
#include <string>

/// As long as it lives, C, C++ and Qt write numbers with a comma and grouped digits. The C
/// locale needs a German one on the machine; the other two always change.
class ForeignLocale
{
public:
    ForeignLocale() : m_c(std::setlocale(LC_ALL, nullptr)), m_cpp(), m_qt()
    {
        std::locale::global(std::locale(std::locale::classic(), new Punctuation));
        QLocale::setDefault(QLocale(QLocale::German));
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"}) {
            if (std::setlocale(LC_ALL, name))
                break;
        }
    }
    ForeignLocale(const ForeignLocale&) = delete;
    ForeignLocale& operator=(const ForeignLocale&) = delete;
    ~ForeignLocale()
    {
        QLocale::setDefault(m_qt);
        std::locale::global(m_cpp);
        std::setlocale(LC_ALL, m_c.c_str());
    }

private:
    struct Punctuation : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };

    const std::string m_c;
    const std::locale m_cpp; ///< the global one of before
    const QLocale m_qt;      ///< the default one of before
};

#endif
