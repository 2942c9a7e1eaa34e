// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <exception>
#include <functional>
#include <variant>

/// A failure with a text for the user. The service reports one of the two kinds below;
/// workflows catch this one.
class DescribedError : public std::exception
{
public:
    [[nodiscard]] virtual QString errorDescription() const = 0;
};

/// A failure of the tool, of a request to it or in what it printed.
class YTDLPError : public DescribedError
{
public:
    enum class Kind { fetchFailed, downloadFailed, parseError, notFound };

    /// Whether the tool ran at all.
    enum class Launch { succeeded, failed };

    static YTDLPError fetchFailed(const QString &message, Launch launch = Launch::succeeded);
    static YTDLPError downloadFailed(const QString &message, Launch launch = Launch::succeeded);
    static YTDLPError parseError(const QString &message);
    /// For callers that look for the tool themselves; otherwise a failed launch is
    /// reported as a failed fetch or download.
    static YTDLPError notFound();

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] QString message() const { return m_message; }
    [[nodiscard]] Launch launch() const { return m_launch; }
    [[nodiscard]] QString errorDescription() const override;

private:
    YTDLPError(Kind kind, QString message, Launch launch = Launch::succeeded);

    Kind m_kind;
    QString m_message;
    Launch m_launch;
};

/// The JSON parser's own error, in its own words.
class JSONReaderError : public DescribedError
{
public:
    explicit JSONReaderError(QString message);
    [[nodiscard]] QString errorDescription() const override;

private:
    QString m_message;
};

/// The outcome of one request. It crosses threads as a value and becomes an
/// exception only where it is awaited.
template<typename Value>
using Reply = std::variant<Value, YTDLPError, JSONReaderError>;

/// Takes the outcome of one request; called exactly once, on the service's
/// worker thread.
template<typename Value>
using Completion = std::function<void(Reply<Value>)>;

/// The error of a reply, if it holds one.
template<typename Value>
const DescribedError *errorOf(const Reply<Value> &reply)
{
    if (const auto *const error = std::get_if<YTDLPError>(&reply))
        return error;
    return std::get_if<JSONReaderError>(&reply);
}

/// The value of a reply; throws the error if it holds one.
template<typename Value>
Value valueOrThrow(Reply<Value> reply)
{
    if (const auto *const error = std::get_if<YTDLPError>(&reply))
        throw *error;
    if (const auto *const error = std::get_if<JSONReaderError>(&reply))
        throw *error;
    return std::get<Value>(std::move(reply));
}
