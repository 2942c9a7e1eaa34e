// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

/// What the user can do about a failure of the tool.
struct FailureAdvice
{
    enum class Remedy {
        chooseCookies, ///< the setting of the browser
        openSettings,  ///< the setting of the folder
        tryAgain,
        tryAgainLater, ///< after a minute
        runCommand,    ///< in a shell
    };

    QString sentence;
    Remedy remedy;
    QString command{}; ///< for a shell; empty for other remedies
};

/// The advice for a failure, by the words of its message; nothing for messages that are not
/// known, or where nothing can be done. `browser` is the one whose cookies are used, as the
/// tool calls it.
std::optional<FailureAdvice> adviceFor(const QString &failure, const QString &browser);
