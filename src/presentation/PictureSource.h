// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

#include <chrono>

/// Where pictures may come from. Their URLs are chosen by web pages, which must not make
/// the program send requests into the user's own network. Host names are not resolved for
/// this.
struct PictureSource
{
    /// For one picture, from its request to its end.
    std::chrono::milliseconds patience = std::chrono::seconds(30);
    /// "host:port", allowed nevertheless: the demonstration's video site.
    QString exception = {};

    /// Whether it is http or https, and neither on this machine nor on a private network
    /// as far as the URL itself shows.
    [[nodiscard]] bool isAllowed(const QUrl &url) const;
};
