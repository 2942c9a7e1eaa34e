// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShownText.h"

namespace {

constexpr qsizetype longestText = 10'000;
constexpr qsizetype longestLine = 1'000;

bool overridesDirection(QChar character)
{
    return character >= u'\u202A' && character <= u'\u202E';
}

bool endsLine(QChar character)
{
    return (character >= u'\n' && character <= u'\r') || character == u'\u0085'
        || character == u'\u2028' || character == u'\u2029';
}

QString cut(const QString &text, qsizetype most)
{
    const QStringView trimmed = QStringView(text).trimmed();
    if (trimmed.size() <= most)
        return trimmed.toString();
    const qsizetype end = trimmed[most - 1].isHighSurrogate() ? most - 1 : most;
    return trimmed.first(end).toString() + u'…';
}

QString directed(const QString &text)
{
    constexpr QChar closing = u'\u2069';
    QString shown;
    shown.reserve(text.size());
    qsizetype open = 0;
    for (const QChar character : text) {
        if (overridesDirection(character) || (character == closing && open == 0))
            continue;
        if (character >= u'\u2066' && character <= u'\u2068')
            ++open;
        else if (character == closing)
            --open;
        shown += character;
    }
    return shown + QString(open, closing);
}

} // namespace

QString shownText(const QString &text)
{
    return directed(cut(text, longestText));
}

QString shownLine(const QString &text)
{
    QString line;
    bool isInBreak = false;
    const QString source = cut(text, longestLine);
    for (const QChar character : source) {
        const bool isBreak = endsLine(character);
        if (!isBreak)
            line += character;
        else if (!isInBreak)
            line += u' ';
        isInBreak = isBreak;
    }
    return directed(line);
}
