// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Release.h"
#include "StateFixture.h"
#include "ToolKeeper.h"

#include <QDir>

using namespace Qt::StringLiterals;

/// A keeper of a state's tool, with releases of the test's own. The tool tells the version
/// that the test says, and does what its script says when it is asked for anything else.
class KeeperFixture : public QObject
{
protected:
    void init()
    {
        m_signer = m_signer ? std::move(m_signer) : std::make_unique<Signer>();
        m_server = std::make_unique<ReleaseServer>();
        m_fixture = std::make_unique<StateFixture>();
        m_fixture->state.reset();
        m_fixture->service =
            std::make_unique<YTDLPService>(QStringList{ownPath(), m_fixture->tool.path()});
        m_fixture->restart();
        m_today = QDate(2026, 8, 19);
        offer(*m_server, *m_signer, zippedTool(versionCode("2026.08.19")));
        setTool("2023.03.04");
        makeKeeper();
    }

    void cleanup()
    {
        m_keeper.reset();
        m_fixture.reset();
    }

    AppState &state() { return *m_fixture->state; }
    QString ownPath() const { return m_fixture->folder.filePath(u"own/yt-dlp"_s); }

    void setTool(const QByteArray &version, const QByteArray &rest = "exit 1")
    {
        m_fixture->tool.respond("for --version print " + version + "\nfor --version exit 0\n"
                                + rest);
    }

    void makeKeeper()
    {
        m_keeper = std::make_unique<ToolKeeper>(
            state(), *m_fixture->preferences,
            ToolKeeper::Parts{.places = {.searchPaths = {ownPath(), m_fixture->tool.path()},
                                         .ownPath = ownPath(),
                                         .environment = {{u"PATH"_s, u"/usr/bin:/bin"_s},
                                                         {u"HOME"_s, m_fixture->folder.path()}}},
                              .source = {.folder = m_server->url(), .key = m_signer->key},
                              .today = [this] { return m_today; }});
    }
    [[nodiscard]] bool begin()
    {
        m_keeper->begin();
        return waitFor([&] { return m_keeper->report().has_value(); });
    }
    [[nodiscard]] bool restart()
    {
        m_keeper.reset();
        m_fixture->restart();
        makeKeeper();
        return begin();
    }
    QString version() const { return m_keeper->report()->version.text; }

    [[nodiscard]] bool fetch(const QString &url = u"https://example.org/a"_s)
    {
        state().singleURL = url;
        state().fetchSingleInfo();
        return waitFor([&] { return !state().isFetching(); });
    }
    [[nodiscard]] bool update()
    {
        m_keeper->update();
        return waitFor([&] { return m_keeper->updatePhase() != ToolKeeper::UpdatePhase::running; });
    }

    std::unique_ptr<Signer> m_signer;
    std::unique_ptr<ReleaseServer> m_server;
    std::unique_ptr<StateFixture> m_fixture;
    std::unique_ptr<ToolKeeper> m_keeper;
    QDate m_today;
};
