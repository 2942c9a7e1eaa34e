// SPDX-License-Identifier: GPL-3.0-or-later
#include "UpdateRun.h"

#include "HomeDirectory.h"

#include <QNetworkProxy>

#include <cerrno>
#include <utility>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

constexpr qint64 mostToolBytes = qint64{20} * 1000 * 1000; // a release has 3 million
constexpr qint64 mostListBytes = qint64{1} * 1000 * 1000;
constexpr auto timeOfHelper = 10s;
constexpr int mostBeginnings = 2;
constexpr int oldestPython = 10; // of the third

const QString sumsFile = u"SHA2-256SUMS"_s;
const QString signatureFile = u"SHA2-256SUMS.sig"_s;
const QString packedFile = u"packed"_s;
const QString notUsed = u"The new yt-dlp was not used: "_s;

class SystemProxy : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override
    {
        return systemProxyForQuery(query);
    }
};

/// 0, or the system's error.
int writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    const bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        && file.write(content) == content.size();
    return isWritten ? 0 : errno;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString pythonNeeded(const QString &found)
{
    return u"yt-dlp needs Python 3.10 or newer; %1."_s.arg(found);
}

/// What is wrong with a Python, by its answer about its version; nothing if it will do.
QString objectionToPython(const BoundedRun &answer)
{
    const QList<QByteArray> version = answer.output.trimmed().split('.');
    if (!answer.isSuccess() || version.size() != 2)
        return u"what is installed does not start"_s;
    const bool isNewEnough = version[0].toInt() == 3 && version[1].toInt() >= oldestPython;
    return isNewEnough ? QString() : u"here is "_s + QString::fromLatin1(version.join('.'));
}

/// What a failed run said, in brackets; nothing if it said nothing.
QString bracketed(const QString &words)
{
    return words.isEmpty() ? words : u" (%1)"_s.arg(words);
}

/// What is wrong with a new tool that was tried; nothing if it works.
QString objectionTo(const BoundedRun &tried, const ToolVersion &present)
{
    if (tried.hasRunOutOfTime)
        return notUsed + u"it does not answer."_s;
    if (!tried.isSuccess()) {
        return notUsed + u"it does not start%1."_s.arg(bracketed(wordsOf(tried)));
    }
    const ToolVersion version = versionFromOutput(tried.output);
    if (!version.isDated())
        return notUsed + u"it does not tell its version."_s;
    if (present.isDated() && compare(version, present) < 0) {
        return notUsed
            + u"the latest release, %1, is older than what is here, %2."_s.arg(version.text,
                                                                               present.text);
    }
    if (version.date < oldestWorkingRelease())
        return notUsed + u"YouTube does not answer the latest release, %1."_s.arg(version.text);
    return {};
}

} // namespace

UpdateRun::UpdateRun(ChildProcesses &processes, ReleaseSource source, ToolPlaces places,
                     ToolVersion present, ToolUpdate::Handlers handlers)
    : m_processes(processes)
    , m_source(std::move(source))
    , m_places(std::move(places))
    , m_present(std::move(present))
    , m_handlers(std::move(handlers))
{
    m_network.setProxyFactory(new SystemProxy);
}

void UpdateRun::begin()
{
    if (const ToolReport found = locateTool(m_places); found.obstacle != Obstacle::none) {
        fail(obstacleText(found));
        return;
    }
    m_python = programIn(m_places.environment, u"python3"_s);
    if (m_python.isEmpty()) {
        fail(pythonNeeded(u"it is not installed"_s));
        return;
    }
    const QString question = u"import sys; print(*sys.version_info[:2], sep='.')"_s;
    run(m_python, {u"-I"_s, u"-c"_s, question}, timeOfHelper, [this](const BoundedRun &answer) {
        const QString objection = objectionToPython(answer);
        if (objection.isEmpty())
            claimFolder();
        else
            fail(pythonNeeded(objection));
    });
}

void UpdateRun::claimFolder()
{
    m_folder = std::make_unique<ToolFolder>(m_places.ownPath);
    if (const auto error = m_folder->take())
        fail(*error);
    else
        fetchSums();
}

void UpdateRun::fetchSums()
{
    ++m_beginnings;
    m_handlers.onProgress({UpdateProgress::Step::downloading, -1});
    fetch(sumsFile, mostListBytes, false,
          [this] { fetch(signatureFile, mostListBytes, false, [this] { verifySums(); }); });
}

void UpdateRun::verifySums()
{
    const QString gpgv = programIn(m_places.environment, u"gpgv"_s);
    if (gpgv.isEmpty()) {
        fail(u"A new yt-dlp cannot be checked: gpgv is not installed."_s);
        return;
    }
    const QString key = m_folder->workFile(u"key.gpg"_s);
    if (const int error = writeFile(key, dearmored(m_source.key)); error != 0) {
        fail(writingFailed(key, error));
        return;
    }
    run(gpgv,
        {u"--homedir"_s, m_folder->workFile(QString()), u"--keyring"_s, key, u"--status-fd"_s,
         u"1"_s, m_folder->workFile(signatureFile), m_folder->workFile(sumsFile)},
        timeOfHelper, [this](const BoundedRun &check) {
            const bool isGood = check.isSuccess() && check.output.contains("[GNUPG:] GOODSIG ")
                && check.output.contains("[GNUPG:] VALIDSIG ");
            if (isGood)
                fetchTool();
            else if (check.hasRunOutOfTime || check.ending.wasSignalled)
                fail(u"A new yt-dlp cannot be checked: gpgv does not answer."_s);
            else
                beginAnew(notUsed + u"its signature is not good."_s);
        });
}

void UpdateRun::fetchTool()
{
    m_hash.reset();
    fetch(releasedFile(), mostToolBytes, true, [this] { checkSum(); });
}

void UpdateRun::checkSum()
{
    const auto expected = sumFor(contentOf(m_folder->workFile(sumsFile)), releasedFile());
    m_sum = m_hash.result().toHex();
    if (!expected)
        fail(notUsed + u"the release does not list it."_s);
    else if (m_sum != *expected)
        beginAnew(notUsed + u"it is not what was released."_s);
    else
        pack();
}

void UpdateRun::pack()
{
    m_handlers.onProgress({UpdateProgress::Step::preparing, 0});
    const QString script = m_folder->workFile(u"pack_tool.py"_s);
    const QByteArray content = contentOf(u":/tool/pack_tool.py"_s);
    if (const int error = writeFile(script, content); error != 0) {
        fail(writingFailed(script, error));
        return;
    }
    run(
        m_python,
        {u"-I"_s, script, m_folder->workFile(releasedFile()), m_folder->workFile(packedFile),
         QString::fromLatin1(ownMark(m_sum))},
        m_source.timeToPack,
        [this](const BoundedRun &packing) {
            constexpr int noZip = 3;
            constexpr int noRoom = 4;
            const QString words = bracketed(wordsOf(packing));
            if (packing.isSuccess())
                tryPacked();
            else if (packing.ending.status == noZip && !packing.ending.wasSignalled)
                fail(notUsed + u"it is damaged."_s);
            else if (packing.ending.status == noRoom && !packing.ending.wasSignalled)
                fail(writingFailed(m_places.ownPath, ENOSPC));
            else
                fail(notUsed + u"it could not be unpacked%1."_s.arg(words));
        },
        [this](const QByteArray &bytes) {
            bool isNumber = false;
            const int percent = bytes.trimmed().split('\n').last().toInt(&isNumber);
            if (!isNumber)
                return;
            m_handlers.onProgress({UpdateProgress::Step::preparing, percent / 100.0});
        });
}

void UpdateRun::tryPacked()
{
    const QString packed = m_folder->workFile(packedFile);
    QFile::setPermissions(packed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    run(packed, {u"--version"_s}, m_source.timeToStart, [this](const BoundedRun &tried) {
        const QString objection = objectionTo(tried, m_present);
        if (objection.isEmpty())
            install(versionFromOutput(tried.output));
        else
            fail(objection);
    });
}

void UpdateRun::install(const ToolVersion &version)
{
    if (const auto error = m_folder->install(m_folder->workFile(packedFile)))
        fail(*error);
    else
        end({.version = version, .error = {}});
}

void UpdateRun::fetch(const QString &name, qint64 mostBytes, bool isReported, const Next &next)
{
    m_file.close();
    m_file.setFileName(m_folder->workFile(name));
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        fail(writingFailed(m_file.fileName(), errno));
        return;
    }
    const auto take = [this, isReported](const QByteArray &bytes, double part) -> QString {
        m_hash.addData(bytes);
        errno = 0;
        if (m_file.write(bytes) != bytes.size()) {
            fail(writingFailed(m_file.fileName(), errno == 0 ? ENOSPC : errno));
            return u"it cannot be kept"_s;
        }
        if (isReported)
            m_handlers.onProgress({UpdateProgress::Step::downloading, part});
        return {};
    };
    const auto finish = [this, next](const QString &error) {
        m_file.close();
        if (error.isEmpty())
            next();
        else
            fail(u"yt-dlp could not be downloaded: %1."_s.arg(error));
    };
    dropDownload();
    m_download = std::make_unique<Download>(
        m_network, m_source.folder.resolved(QUrl(name)),
        Download::Limits{.mostBytes = mostBytes, .longestSilence = m_source.longestSilence},
        Download::Handlers{.onBytes = take, .onEnd = finish});
}

void UpdateRun::run(const QString &program, const QStringList &arguments,
                    std::chrono::milliseconds time, const RunHandler &onEnd,
                    const ChildProcess::OutputHandler &onOutput)
{
    // The end of a program that cannot be launched is handled before there is a child.
    const auto hasEnded = std::make_shared<bool>(false);
    ChildProcess *const child = runBounded(
        m_processes,
        {.program = program,
         .arguments = arguments,
         .environment = m_places.environment,
         .folder = toolFolder()},
        time,
        [this, hasEnded, onEnd](const BoundedRun &finished) {
            *hasEnded = true;
            m_child = nullptr;
            if (m_isGivenUp)
                end({});
            else
                onEnd(finished);
        },
        onOutput);
    if (!*hasEnded)
        m_child = child;
}

void UpdateRun::beginAnew(const QString &error)
{
    if (m_beginnings < mostBeginnings)
        fetchSums();
    else
        fail(error);
}

void UpdateRun::fail(const QString &error)
{
    end({.version = {}, .error = error});
}

void UpdateRun::giveUp()
{
    m_isGivenUp = true;
    if (m_child)
        m_child->end(); // it writes into the folder until it is gone
    else
        end({});
}

void UpdateRun::end(const UpdateOutcome &outcome)
{
    const auto onEnd = std::exchange(m_handlers.onEnd, {});
    if (!onEnd)
        return;
    dropDownload();
    m_file.close();
    m_folder.reset();
    onEnd(outcome);
}

void UpdateRun::dropDownload()
{
    if (m_download) // which may have led here
        m_download.release()->deleteLater();
}
