// SPDX-FileCopyrightText: the Quandrel device GUI authors
// SPDX-License-Identifier: BSD-3-Clause

#include "host/workbench/preferences/Appearance.h"

#include "host/workbench/preferences/Contrast.h"
#include "host/workbench/preferences/EdgeStyle.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

namespace host::workbench::preferences {

namespace {

constexpr const char* asSystem = "system";
constexpr const char* light = "light";
constexpr const char* dark = "dark";

/// The colours that a palette is made of; what is disabled has those of its own.
struct Colours
{
    QRgb window;
    QRgb base;
    QRgb alternateBase;
    QRgb button;
    QRgb text;
    QRgb placeholder;
    QRgb disabledText;
    QRgb highlight;
    QRgb highlightedText;
    QRgb disabledHighlight;
    QRgb link;
    QRgb visitedLink;
    QRgb toolTip;
    // Edges, from the bright to the dark.
    QRgb brightest;
    QRgb midlight;
    QRgb mid;
    QRgb darker;
    QRgb shadow;
};

constexpr Colours lightColours = {
    0xffefefef, 0xffffffff, 0xfff5f5f5, 0xffefefef, 0xff1a1a1a, 0xff6b6b6b,
    0xff6b6b6b, 0xff1f6fb5, 0xffffffff, 0xffb4b4b4, 0xff0b57a4, 0xff6b3fa0,
    0xffffffdc, 0xffffffff, 0xffcacaca, 0xffb8b8b8, 0xff9f9f9f, 0xff767676,
};

constexpr Colours darkColours = {
    0xff2b2d30, 0xff1e1f22, 0xff26282b, 0xff34373b, 0xffe4e6e8, 0xff9da1a6,
    0xff9da1a6, 0xff2f6fb0, 0xffffffff, 0xff4d5156, 0xff6cb2ff, 0xffc09bf0,
    0xff3c3f43, 0xff43474b, 0xff484c50, 0xff5c6066, 0xff17181a, 0xff0c0d0e,
};

QPalette palette(const Colours& colours)
{
    QPalette palette;
    const auto set = [&palette](QPalette::ColorRole role, QRgb colour) {
        palette.setColor(role, QColor(colour));
    };
    set(QPalette::Window, colours.window);
    set(QPalette::Base, colours.base);
    set(QPalette::AlternateBase, colours.alternateBase);
    set(QPalette::Button, colours.button);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::BrightText, QPalette::ToolTipText}) {
        set(role, colours.text);
        if (role != QPalette::BrightText && role != QPalette::ToolTipText)
            palette.setColor(QPalette::Disabled, role, QColor(colours.disabledText));
    }
    set(QPalette::PlaceholderText, colours.placeholder);
    set(QPalette::Highlight, colours.highlight);
    set(QPalette::HighlightedText, colours.highlightedText);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(colours.disabledHighlight));
    set(QPalette::Link, colours.link);
    set(QPalette::LinkVisited, colours.visitedLink);
    set(QPalette::ToolTipBase, colours.toolTip);
    set(QPalette::Light, colours.brightest);
    set(QPalette::Midlight, colours.midlight);
    set(QPalette::Mid, colours.mid);
    set(QPalette::Dark, colours.darker);
    set(QPalette::Shadow, colours.shadow);
    return palette;
}

/// What must change in the system's palette for its texts to be legible; the rest stays the
/// system's.
QPalette legibleChanges(const QPalette& system)
{
    QPalette changes;
    const auto change = [&](QPalette::ColorGroup group, QPalette::ColorRole text,
                            std::initializer_list<QPalette::ColorRole> grounds) {
        QColor colour = system.color(group, text);
        for (const QPalette::ColorRole ground : grounds)
            colour = contrasting(colour, system.color(group, ground), contrastOfText);
        if (colour != system.color(group, text))
            changes.setColor(group, text, colour);
    };
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (const auto text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                QPalette::PlaceholderText, QPalette::Link, QPalette::LinkVisited})
            change(group, text,
                   {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button});
        change(group, QPalette::HighlightedText, {QPalette::Highlight});
    }
    return changes;
}

} // namespace

Appearance::Appearance() : Preference("appearance", codes())
{
    Appearance::apply(); // the system's has something to be changed, too
}

QStringList Appearance::codes()
{
    return {QLatin1String(asSystem), QLatin1String(light), QLatin1String(dark)};
}

QString Appearance::title() const
{
    return tr("&Appearance");
}

QString Appearance::name(const QString& code) const
{
    if (code == QLatin1String(asSystem))
        return tr("As the &system");
    return code == QLatin1String(dark) ? tr("&Dark") : tr("&Light");
}

void Appearance::apply()
{
    if (m_systemStyle.isEmpty())
        m_systemStyle = QApplication::style()->objectName();
    const bool isSystem = code() == QLatin1String(asSystem);
    // The palette first: a new style looks at it for the colours that style sheets take from it. An
    // empty one brings the system's back.
    QApplication::setPalette(
        isSystem ? QPalette()
                 : palette(code() == QLatin1String(dark) ? darkColours : lightColours));
    const QString style = isSystem ? m_systemStyle : QStringLiteral("fusion");
    if (style == QLatin1String("fusion"))
        QApplication::setStyle(new EdgeStyle); // owned by the application
    else
        QApplication::setStyle(style);
    if (isSystem)
        QApplication::setPalette(legibleChanges(QApplication::palette()));
}

} // namespace host::workbench::preferences
