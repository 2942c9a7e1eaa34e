// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>

#include <optional>

/// Cuts a stream of bytes into lines at "\n" alone. Bytes, since a read may end
/// in the middle of a character.
class LineBuffer
{
public:
    void append(const QByteArray &bytes);

    /// The next complete line without its line break. An unterminated rest is not a line.
    std::optional<QByteArray> takeLine();

private:
    QByteArray m_bytes;
    qsizetype m_lineStart = 0;
    qsizetype m_scanned = 0; // no line break stands between the two
};
