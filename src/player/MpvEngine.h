// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Mailbox.h"
#include "MpvOptions.h"
#include "MpvPicture.h"
#include "PlayerEngine.h"

#include <QSocketNotifier>
#include <QTimer>

#include <atomic>
#include <optional>
#include <vector>

struct mpv_event;
struct mpv_event_end_file;
struct mpv_event_property;

/// Plays with libmpv. mpv reports events on its own threads, which only post them to the
/// main thread. mpv is called from the main thread only, and never blocks it.
class MpvEngine : public PlayerEngine
{
    Q_DISABLE_COPY_MOVE(MpvEngine)

public:
    /// Nothing if mpv does not start; `error` then says why. The given options replace
    /// the program's own.
    static std::unique_ptr<MpvEngine> create(Events events, QString &error,
                                             const std::vector<MpvOption> &options = {});
    ~MpvEngine() override;

    void load(const QUrl &url, double start) override;
    void unload() override;
    void setPaused(bool isPaused) override;
    void seek(double position) override;
    void setVolume(double volume) override;
    void setMuted(bool isMuted) override;
    void setWish(const PictureWish &wish) override;

private:
    explicit MpvEngine(Events events);
    bool start(QString &error, const std::vector<MpvOption> &options);
    bool setOption(const MpvOption &option);
    void command(std::initializer_list<QByteArray> words, quint64 number = 0);
    void setFlag(const char *property, bool value);
    void setText(const char *property, const char *value);

    void readEvents();
    void take(const mpv_event &event);
    void noteComplaint(const QByteArray &text);
    void handleProperty(const mpv_event_property &property);
    void handleEnd(const mpv_event_end_file &end);
    void handleEndReached(bool isReached);
    [[nodiscard]] bool isNearEnd() const;
    void reportStatus();
    void fail();
    void forget();
    [[nodiscard]] bool isCurrent() const { return m_entry >= 0 && m_entry == m_startedEntry; }

    void reportPicture();

    Events m_events;
    mpv_handle *m_mpv = nullptr;
    std::unique_ptr<MpvPicture> m_picture;

    PlayerStatus m_status;
    PlayerStatus m_reportedStatus;
    bool m_isWaitingForData = false;
    bool m_isSeeking = false;
    bool m_isAtEnd = false;
    bool m_hasBegun = false;
    std::optional<double> m_seekLater;
    quint64 m_loadNumber = 0;
    qint64 m_entry = -1;        // mpv's number for what was loaded last
    qint64 m_startedEntry = -1; // and for what it is playing
    QString m_complaint;        // the last one that the reader of the stream had
    bool m_isRefused = false;   // by the site, which has said 403
    QTimer m_failure;

    std::atomic<bool> m_isAwake = false;

    // Shared with those of mpv's threads that may still call back.
    const std::shared_ptr<Mailbox> m_mailbox;
    const std::unique_ptr<QSocketNotifier> m_delivery;
};
