// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

#include <chrono>

/// Where pictures may come from. Their URLs are chosen by web pages, which must not
/// make the program ask the user's own network for anything. What a name resolves to is
/// not looked at.
struct PictureSource
{
    /// For one picture, from being asked for to being there.
    std::chrono::milliseconds patience = std::chrono::seconds(30);
    /// "host:port" that is allowed all the same: the demonstration's video site.
    QString exception = {};

    /// Whether it is of the web, http or https, and neither this machine's nor of a private
    /// network as far as the URL itself tells.
    [[nodiscard]] bool isAllowed(const QUrl &url) const;
};
