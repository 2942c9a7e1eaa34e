// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Whether all of the bytes are UTF-8.
bool isDecodable(const QByteArray &bytes);

/// The bytes as text; empty unless all of them are UTF-8.
QString decodedText(const QByteArray &bytes);

/// How a failed run is reported: by what it wrote to standard error, unchanged, or as
/// "Exit code N" if that is empty.
QString failureMessage(const QByteArray &standardError, int status);

/// The text without spaces and tabs at its ends. Line breaks stay.
QString trimmedOfBlanks(const QString &text);
