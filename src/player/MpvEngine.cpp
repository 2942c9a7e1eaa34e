// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvEngine.h"

#include "MpvValues.h"

#include <mpv/client.h>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr const char *endReached = "eof-reached";
constexpr const char *idle = "idle-active";
constexpr const char *videoShape = "video-out-params";

struct Observed
{
    const char *name;
    mpv_format format;
};

constexpr Observed observed[] = {
    {videoShape, MPV_FORMAT_NODE},
    {idle, MPV_FORMAT_FLAG},
    {"time-pos", MPV_FORMAT_DOUBLE},
    {"duration", MPV_FORMAT_DOUBLE},
    {"demuxer-cache-time", MPV_FORMAT_DOUBLE},
    {"paused-for-cache", MPV_FORMAT_FLAG},
    {"seeking", MPV_FORMAT_FLAG},
    {endReached, MPV_FORMAT_FLAG},
};

// A stream may stop this many seconds before its end and still count as played, since
// audio and video are seldom equally long. The position is that of the last picture,
// which was measured to be up to 0.6 s before the end in short streams.
double endTolerance(double duration)
{
    return std::clamp(0.25 + duration / 20, 0.6, 2.0);
}

// How finely the position is reported; a bar cannot show more.
constexpr double positionStep = 0.1; // seconds

// The reason for a failure is logged a moment after the failure itself.
constexpr auto reasonDelay = 100ms;

} // namespace

std::unique_ptr<MpvEngine> MpvEngine::create(Events events, QString &error,
                                             const std::vector<MpvOption> &options)
{
    std::unique_ptr<MpvEngine> engine(new MpvEngine(std::move(events)));
    return engine->start(error, options) ? std::move(engine) : nullptr;
}

MpvEngine::MpvEngine(Events events)
    : m_events(std::move(events))
    , m_mailbox(std::make_shared<Mailbox>())
    , m_delivery(m_mailbox->open())
{
    m_failure.setSingleShot(true);
    m_failure.setInterval(reasonDelay);
    QObject::connect(&m_failure, &QTimer::timeout, &m_failure, [this] { fail(); });
}

MpvEngine::~MpvEngine()
{
    if (!m_mpv)
        return;
    mpv_set_wakeup_callback(m_mpv, nullptr, nullptr);
    m_picture.reset();
    mpv_terminate_destroy(m_mpv);
    m_mailbox->close();
}

bool MpvEngine::start(QString &error, const std::vector<MpvOption> &options)
{
    // mpv refuses locales with a decimal comma.
    std::setlocale(LC_NUMERIC, "C");
    m_mpv = mpv_create();
    const auto set = [this](const MpvOption &option) { return setOption(option); };
    if (!m_mpv || !std::all_of(std::begin(mpvOptions), std::end(mpvOptions), set)
        || !std::all_of(options.begin(), options.end(), set) || mpv_initialize(m_mpv) < 0) {
        error = u"The player cannot be started"_s;
        return false;
    }
    m_picture = std::make_unique<MpvPicture>(
        m_mpv, [this] { m_mailbox->post([this] { reportPicture(); }); });
    if (!m_picture->isValid()) {
        error = u"The player cannot draw"_s;
        return false;
    }
    mpv_request_log_messages(m_mpv, "warn");
    for (const Observed &property : observed)
        mpv_observe_property(m_mpv, 0, property.name, property.format);
    mpv_set_wakeup_callback(
        m_mpv,
        [](void *self) {
            auto *const engine = static_cast<MpvEngine *>(self);
            if (!engine->m_isAwake.exchange(true))
                engine->m_mailbox->post([engine] { engine->readEvents(); });
        },
        this);
    return true;
}

bool MpvEngine::setOption(const MpvOption &option)
{
    return mpv_set_option_string(m_mpv, option.name, option.value) >= 0;
}

void MpvEngine::load(const QUrl &url, double start)
{
    forget();
    m_status.position = start;
    const QByteArray position = QByteArray::number(start, 'f', 3);
    setText("start", start > 0 ? position.constData() : "none");
    command({"loadfile", url.toEncoded(), "replace"}, ++m_loadNumber);
}

void MpvEngine::unload()
{
    forget();
    ++m_loadNumber;
    command({"stop"});
}

void MpvEngine::setPaused(bool isPaused)
{
    setFlag("pause", isPaused);
    // An end reached during a pause has not been reported.
    if (!isPaused)
        mpv_get_property_async(m_mpv, m_loadNumber, endReached, MPV_FORMAT_FLAG);
}

void MpvEngine::seek(double position)
{
    // Before playback has begun, mpv would forget it.
    m_seekLater = m_hasBegun ? std::nullopt : std::optional(position);
    m_status.position = position;
    if (m_hasBegun)
        command({"seek", QByteArray::number(position, 'f', 3), "absolute"});
}

void MpvEngine::setVolume(double volume)
{
    double percent = volume * 100;
    mpv_set_property_async(m_mpv, 0, "volume", MPV_FORMAT_DOUBLE, &percent);
}

void MpvEngine::setMuted(bool isMuted)
{
    setFlag("mute", isMuted);
}

void MpvEngine::setWish(const PictureWish &wish)
{
    m_picture->setWish(wish);
}

void MpvEngine::command(std::initializer_list<QByteArray> words, quint64 number)
{
    std::vector<const char *> pointers;
    for (const QByteArray &word : words)
        pointers.push_back(word.constData());
    pointers.push_back(nullptr);
    mpv_command_async(m_mpv, number, pointers.data());
}

void MpvEngine::setFlag(const char *property, bool value)
{
    int flag = value ? 1 : 0;
    mpv_set_property_async(m_mpv, 0, property, MPV_FORMAT_FLAG, &flag);
}

void MpvEngine::setText(const char *property, const char *value)
{
    mpv_set_property_async(m_mpv, 0, property, MPV_FORMAT_STRING, &value);
}

void MpvEngine::readEvents()
{
    m_isAwake = false; // before reading: later events set it again
    while (true) {
        const mpv_event *const event = mpv_wait_event(m_mpv, 0);
        if (event->event_id == MPV_EVENT_NONE)
            break;
        take(*event);
    }
    reportStatus();
}

void MpvEngine::take(const mpv_event &event)
{
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        if (event.reply_userdata != 0 && event.reply_userdata == m_loadNumber)
            m_entry = numberIn(static_cast<const mpv_event_command *>(event.data)->result,
                               "playlist_entry_id");
        break;
    case MPV_EVENT_START_FILE:
        m_startedEntry = static_cast<const mpv_event_start_file *>(event.data)->playlist_entry_id;
        m_status = {}; // the earlier reports were about another stream
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        m_hasBegun = isCurrent();
        m_picture->drawAgain(); // the earlier picture may have been of another stream
        if (m_hasBegun && m_seekLater)
            seek(*m_seekLater);
        break;
    case MPV_EVENT_END_FILE:
        handleEnd(*static_cast<const mpv_event_end_file *>(event.data));
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        handleProperty(*static_cast<const mpv_event_property *>(event.data));
        break;
    case MPV_EVENT_GET_PROPERTY_REPLY:
        // Otherwise mpv may not yet have arrived where the user has sought since.
        if (event.error >= 0 && event.reply_userdata == m_loadNumber && isNearEnd())
            handleProperty(*static_cast<const mpv_event_property *>(event.data));
        break;
    case MPV_EVENT_LOG_MESSAGE: {
        const auto &message = *static_cast<const mpv_event_log_message *>(event.data);
        if (QByteArrayView(message.prefix).startsWith("ffmpeg"))
            noteComplaint(message.text);
        break;
    }
    default:
        break;
    }
}

void MpvEngine::noteComplaint(const QByteArray &text)
{
    m_complaint = QString::fromUtf8(text).trimmed();
    m_isRefused = m_isRefused || text.contains("HTTP error 403");
}

void MpvEngine::handleProperty(const mpv_event_property &property)
{
    const QByteArrayView name(property.name);
    const double number =
        property.format == MPV_FORMAT_DOUBLE ? *static_cast<const double *>(property.data) : 0;
    const bool flag =
        property.format == MPV_FORMAT_FLAG && *static_cast<const int *>(property.data) != 0;
    if (name == videoShape)
        m_picture->setVideo(videoShapeIn(property));
    else if (name == idle && flag)
        m_picture->rest();
    else if (name == "time-pos")
        m_status.position = number;
    else if (name == "duration")
        m_status.duration = number;
    else if (name == "demuxer-cache-time")
        m_status.loadedTo = number;
    else if (name == "paused-for-cache")
        m_isWaitingForData = flag;
    else if (name == "seeking")
        m_isSeeking = flag;
    else if (name == endReached)
        handleEndReached(flag);
}

void MpvEngine::handleEndReached(bool isReached)
{
    if (isReached == m_isAtEnd || !isCurrent())
        return;
    m_isAtEnd = isReached;
    if (!isReached)
        return;
    // A lost connection looks like an end, too.
    if (!isNearEnd()) {
        m_complaint = u"the connection was lost"_s;
        m_failure.start();
        return;
    }
    m_status.position = std::max(m_status.position, m_status.duration);
    reportStatus();
    m_events.ended();
}

bool MpvEngine::isNearEnd() const
{
    return m_status.duration <= 0
        || m_status.duration - m_status.position <= endTolerance(m_status.duration);
}

void MpvEngine::handleEnd(const mpv_event_end_file &end)
{
    if (end.playlist_entry_id != m_entry || end.reason == MPV_END_FILE_REASON_STOP
        || end.reason == MPV_END_FILE_REASON_QUIT)
        return;
    // A stream played to its end would have stayed open.
    if (end.reason == MPV_END_FILE_REASON_REDIRECT) {
        m_complaint = u"it is a list of other URLs"_s;
        command({"stop"});
    } else if (m_complaint.isEmpty()) {
        m_complaint = QString::fromUtf8(mpv_error_string(end.error));
    }
    m_failure.start();
}

void MpvEngine::reportStatus()
{
    m_status.isBuffering = !m_hasBegun || m_isWaitingForData || m_isSeeking;
    PlayerStatus status = m_status;
    status.position = std::floor(status.position / positionStep) * positionStep;
    status.loadedTo = std::floor(status.loadedTo);
    if (!isCurrent() || status == m_reportedStatus)
        return;
    m_reportedStatus = status;
    m_events.statusChanged(status);
}

void MpvEngine::fail()
{
    const QString message = u"The stream cannot be played: "_s + m_complaint;
    const bool hasExpired = m_hasBegun && m_isRefused;
    forget();
    (hasExpired ? m_events.expired : m_events.failed)(message);
}

void MpvEngine::forget()
{
    m_failure.stop();
    m_entry = -1;
    m_isAtEnd = false;
    m_hasBegun = false;
    m_seekLater.reset();
    m_status = {};
    m_reportedStatus = {};
    m_complaint.clear();
    m_isRefused = false;
}

void MpvEngine::reportPicture()
{
    const MpvPicture::Drawn drawn = m_picture->take();
    if (m_hasBegun && !drawn.picture.isNull())
        m_events.pictureChanged(drawn.picture, drawn.proportions);
}
