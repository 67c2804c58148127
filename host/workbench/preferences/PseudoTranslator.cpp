// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/PseudoTranslator.h"

#include <QRegularExpression>

namespace host::workbench::preferences {

namespace {

/// Vowels are two: that makes a text longer by about 40 % and leaves the words' ends, where it
/// may be wrapped, in their places.
QString accented(QChar letter)
{
    static const QString plain = QStringLiteral("aeiouAEIOUcdglnrstzCDGLNRSTZ");
    static const QString accents = QString::fromUtf8("áéíóúÁÉÍÓÚćďğĺñŕśťžĆĎĞĹÑŔŚŤŽ");
    constexpr int vowels = 10;
    const auto index = plain.indexOf(letter);
    return index < 0 ? QString(letter) : QString(index < vowels ? 2 : 1, accents.at(index));
}

QString accented(const QString& text)
{
    // Tags, entities and mnemonics, placeholders, and the patterns of file names.
    static const QRegularExpression kept(
        QStringLiteral("<[^<>]*>|&(?:#?\\w+;|.)|%L?(?:\\d{1,2}|n)|\\(\\*[^()]*\\)"));
    QString result;
    const auto append = [&](const QString& part) {
        for (const QChar letter : part)
            result += accented(letter);
    };
    int done = 0;
    for (auto matches = kept.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        append(text.mid(done, match.capturedStart() - done));
        result += match.captured();
        done = static_cast<int>(match.capturedEnd());
    }
    append(text.mid(done));
    return result;
}

} // namespace

bool PseudoTranslator::isEmpty() const
{
    return false;
}

QString PseudoTranslator::translate(const char*, const char* source, const char*, int) const
{
    // The brackets go inside the outer tags, which would otherwise not be a paragraph's, and
    // before a closing pattern of file names, which must come last.
    static const QRegularExpression parts(
        QStringLiteral("^((?:<[^<>]*>|\\s)*)(.*?)((?:<[^<>]*>|\\s|\\(\\*[^()]*\\))*)$"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = parts.match(QString::fromUtf8(source));
    const QString text = match.captured(2);
    if (text.isEmpty())
        return match.captured();
    return match.captured(1) + '[' + accented(text) + ']' + match.captured(3);
}

} // namespace host::workbench::preferences
