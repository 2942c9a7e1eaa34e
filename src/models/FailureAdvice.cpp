// SPDX-License-Identifier: GPL-3.0-or-later
#include "FailureAdvice.h"

#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Remedy = FailureAdvice::Remedy;

struct Row
{
    QString pattern; // anywhere in the message, in any case
    QString sentence;
    Remedy remedy;
    QString command{};
};

const QString signIn =
    u"The site wants to know who you are. Choose a browser in which you are signed in, and its cookies will be used."_s;
const QString unreadable =
    u"The cookies of %1 cannot be read. Close %1 and unlock the keyring, then try again, or choose another browser."_s;
const QString full = u"The disk is full. Make room, or choose another folder."_s;
const QString readOnly = u"The download folder cannot be written to. Choose another one."_s;
const QString offline = u"The site cannot be reached. Is there a connection to the network?"_s;
const QString noFfmpeg = u"ffmpeg is missing, which merges and converts downloads. Install it:"_s;

// "In sources" means those of yt-dlp 2023.03.04, 2025.04.30 and 2026.08.19.
const QList<Row> &rows()
{
    static const QList<Row> table{
        // Said by the site, as users of yt-dlp report it; with both apostrophes.
        {u"confirm you’re not a bot"_s, signIn, Remedy::chooseCookies},
        {u"confirm you're not a bot"_s, signIn, Remedy::chooseCookies},
        {u"sign in to confirm your age"_s, signIn, Remedy::chooseCookies},
        {u"sign in if you've been granted access"_s, signIn, Remedy::chooseCookies},
        // In sources: the hint of every extractor that needs a login.
        {u"use --cookies-from-browser or --cookies"_s, signIn, Remedy::chooseCookies},
        {u"only available for registered users"_s, signIn, Remedy::chooseCookies},
        // In the sources of 2025.04.30 and 2026.08.19.
        {u"account cookies are no longer valid"_s, signIn, Remedy::chooseCookies},
        // In sources: cookies.py.
        {u"cookies database in"_s, unreadable, Remedy::chooseCookies},
        {u"failed to decrypt cookie"_s, unreadable, Remedy::chooseCookies},
        {u"secretstorage not available"_s, unreadable, Remedy::chooseCookies},
        // In the sources of 2025.04.30 and 2026.08.19.
        {u"could not copy chrome cookie database"_s, unreadable, Remedy::chooseCookies},
        // SQLite's own words.
        {u"database is locked"_s, unreadable, Remedy::chooseCookies},
        // The system's words for ENOSPC, EDQUOT, EACCES and EROFS.
        {u"no space left on device"_s, full, Remedy::openSettings},
        {u"disk quota exceeded"_s, full, Remedy::openSettings},
        {u"errno 13] permission denied"_s, readOnly, Remedy::openSettings},
        {u"read-only file system"_s, readOnly, Remedy::openSettings},
        // The status line that HTTP gives it.
        {u"http error 429"_s, u"The site asks for a pause: there were too many requests."_s,
         Remedy::tryAgainLater},
        // In sources: "ffmpeg is not installed", "ffprobe and ffmpeg not found".
        {u"ffmpeg is not installed"_s, noFfmpeg, Remedy::runCommand, u"sudo apt install ffmpeg"_s},
        {u"ffmpeg not found"_s, noFfmpeg, Remedy::runCommand, u"sudo apt install ffmpeg"_s},
        // The resolver's and the system's words.
        {u"temporary failure in name resolution"_s, offline, Remedy::tryAgain},
        {u"name or service not known"_s, offline, Remedy::tryAgain},
        {u"failed to resolve"_s, offline, Remedy::tryAgain},
        {u"network is unreachable"_s, offline, Remedy::tryAgain},
        {u"no route to host"_s, offline, Remedy::tryAgain},
    };
    return table;
}

} // namespace

std::optional<FailureAdvice> adviceFor(const QString &failure, const QString &browser)
{
    const auto row = std::find_if(rows().begin(), rows().end(), [&](const Row &each) {
        return failure.contains(each.pattern, Qt::CaseInsensitive);
    });
    if (row == rows().end())
        return {};
    QString name = browser;
    if (!name.isEmpty())
        name[0] = name[0].toUpper();
    const QString sentence =
        row->sentence.contains(u"%1") ? row->sentence.arg(name) : row->sentence;
    return FailureAdvice{.sentence = sentence, .remedy = row->remedy, .command = row->command};
}
