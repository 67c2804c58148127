// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/PluginTranslator.h"

#include <QDataStream>
#include <QFile>

namespace host::workbench::preferences {

namespace {

// A .qm file is a magic number and then sections. The messages are one of them, each a sequence of
// tagged fields.
constexpr int magicSize = 16;
constexpr quint8 messagesSection = 0x69;
constexpr quint8 endTag = 1;
constexpr quint8 translationTag = 3;
constexpr quint8 sourceTag = 6;

QByteArray messagesOf(QDataStream& file)
{
    file.skipRawData(magicSize);
    while (!file.atEnd()) {
        quint8 section = 0;
        QByteArray content;
        file >> section >> content;
        if (section == messagesSection)
            return content;
    }
    return {};
}

} // namespace

bool PluginTranslator::read(const QString& fileName)
{
    QFile file(fileName);
    if (!load(fileName) || !file.open(QIODevice::ReadOnly))
        return false;
    QDataStream stream(&file);
    QDataStream messages(messagesOf(stream));
    QByteArray source;
    QString translation;
    while (!messages.atEnd() && messages.status() == QDataStream::Ok) {
        quint8 tag = 0;
        QByteArray other;
        messages >> tag;
        if (tag == endTag)
            m_texts.insert(source, translation);
        else if (tag == translationTag)
            messages >> translation;
        else
            messages >> (tag == sourceTag ? source : other);
    }
    return true;
}

QString PluginTranslator::translate(const char* context, const char* source,
                                    const char* disambiguation, int n) const
{
    return context && *context ? QTranslator::translate(context, source, disambiguation, n)
                               : m_texts.value(source);
}

} // namespace host::workbench::preferences
