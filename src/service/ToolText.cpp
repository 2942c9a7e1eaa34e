// SPDX-License-Identifier: GPL-3.0-or-later
#include "ToolText.h"

using namespace Qt::StringLiterals;

namespace {

bool isBlank(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

} // namespace

bool isDecodable(const QByteArray &bytes)
{
    // QString would put replacement characters where it cannot decode.
    return QUtf8StringView(bytes).isValidUtf8();
}

QString decodedText(const QByteArray &bytes)
{
    return isDecodable(bytes) ? QString::fromUtf8(bytes) : QString();
}

QString failureMessage(const QByteArray &standardError, int status)
{
    const QString text = decodedText(standardError);
    return text.isEmpty() ? u"Exit code %1"_s.arg(status) : text;
}

QString trimmedOfBlanks(const QString &text)
{
    QStringView view(text);
    while (!view.isEmpty() && isBlank(view.front()))
        view = view.mid(1);
    while (!view.isEmpty() && isBlank(view.back()))
        view.chop(1);
    return view.toString();
}
