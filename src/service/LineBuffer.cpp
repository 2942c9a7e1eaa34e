// SPDX-License-Identifier: GPL-3.0-or-later
#include "LineBuffer.h"

void LineBuffer::append(const QByteArray &bytes)
{
    m_bytes.remove(0, m_lineStart);
    m_scanned -= m_lineStart;
    m_lineStart = 0;
    m_bytes.append(bytes);
}

std::optional<QByteArray> LineBuffer::takeLine()
{
    const qsizetype lineBreak = m_bytes.indexOf('\n', m_scanned);
    if (lineBreak < 0) {
        m_scanned = m_bytes.size();
        return {};
    }
    const QByteArray line = m_bytes.mid(m_lineStart, lineBreak - m_lineStart);
    m_lineStart = m_scanned = lineBreak + 1;
    return line;
}
