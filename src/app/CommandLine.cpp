// SPDX-License-Identifier: GPL-3.0-or-later
#include "CommandLine.h"

#include "Openable.h"
#include "QuillonApp.h"
#include "ShownText.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int mostURLs = 100; // as many as a drop may have

const QString help = uR"(Usage: quillon [ADDRESS]...

Downloads videos and music with yt-dlp, in a window.

One ADDRESS (http or https) is fetched; several, at most 100, are put into the queue. If
Quillon is running already, it takes them.

  --help     print this text
  --version  print the version
)"_s;

} // namespace

QString answerTo(const QStringList &arguments)
{
    if (arguments.contains(u"--help"_s))
        return help;
    if (arguments.contains(u"--version"_s))
        return u"Quillon " QUILLON_RELEASE "\n"_s;
    return {};
}

CommandLine parseCommandLine(const QStringList &arguments)
{
    if (arguments.size() > mostURLs)
        return {.error = u"At most %1 addresses can be opened at once."_s.arg(mostURLs)};
    for (const QString &argument : arguments) {
        if (!isOfTheWeb(argument))
            return {.error = u"“%1” is no address of the web. Try “quillon --help”."_s.arg(
                        shownLine(argument))};
    }
    return {.urls = arguments};
}
