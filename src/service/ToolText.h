// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

/// Whether the bytes are UTF-8 as a whole.
bool isDecodable(const QByteArray &bytes);

/// The bytes as text; empty when they are not UTF-8 as a whole.
QString decodedText(const QByteArray &bytes);

/// What a failed run is reported with: what it wrote to standard error,
/// unchanged, or "Exit code N" when that is empty.
QString failureMessage(const QByteArray &standardError, int status);

/// The text without spaces and tabs at its ends. Line breaks stay.
QString trimmedOfBlanks(const QString &text);
