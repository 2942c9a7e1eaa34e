// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>

/// A moment as seconds since 2001-01-01 00:00:00 UTC. The history document
/// stores this number; it is kept as it was read, since going through a
/// QDateTime would cut it to milliseconds.
struct ReferenceDate
{
    double seconds = 0;

    static ReferenceDate now();
    static ReferenceDate fromDateTime(const QDateTime &moment);
    [[nodiscard]] QDateTime toDateTime() const;

    bool operator==(const ReferenceDate &other) const = default;
};
