// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <utility>

/// One observable property of a QObject: its storage, and the signal that follows every
/// assignment, even of an equal value. Screens and tests rely on that signal, which is
/// why neither MEMBER nor bindable properties will do. The call operators are what moc's
/// READ and WRITE call. Used on the owner's thread only.
template<typename Owner, typename Value, auto changed>
class Published
{
    Q_DISABLE_COPY_MOVE(Published)

public:
    Published(Owner *owner, Value initial)
        : m_owner(owner)
        , m_value(std::move(initial))
    {
    }
    ~Published() = default;

    Published &operator=(Value value)
    {
        m_value = std::move(value);
        Q_EMIT(m_owner->*changed)();
        return *this;
    }

    void operator()(Value value) { *this = std::move(value); }
    const Value &operator()() const { return m_value; }

private:
    Owner *m_owner;
    Value m_value;
};

/// A published property. The arguments behind the name are the initial value.
#define PUBLISHED(Owner, Type, name, ...)                                                          \
    Q_PROPERTY(Type name READ name WRITE name NOTIFY name##Changed FINAL)                          \
public:                                                                                            \
    Q_SIGNAL void name##Changed();                                                                 \
    Published<Owner, Type, &Owner::name##Changed> name{this, Type(__VA_ARGS__)};
