#pragma once

#include <QString>

#include <array>
#include <concepts>
#include <limits>
#include <stdexcept>

namespace sd {

/// A failure of the program's own rules (overflow, an index out of range, a file that cannot be
/// read). Screens catch it in their handlers and show their error state; it never ends the program.
class ProgramError : public std::runtime_error
{
public:
    explicit ProgramError(const QString &message) : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromStdString(what()); }
};

class OverflowError : public ProgramError
{
public:
    using ProgramError::ProgramError;
};

/// A data file over the program's limits (more than 32,767 records, or more bytes than they take).
class FileTooLargeError : public ProgramError
{
public:
    using ProgramError::ProgramError;
};

class RangeError : public ProgramError
{
public:
    using ProgramError::ProgramError;
};

/// 16-bit signed integer of the program state. Every value stored in it is checked: a result
/// outside -32768..32767 throws OverflowError instead of wrapping.
class Int16
{
public:
    constexpr Int16() = default;

    template<std::integral T>
    constexpr Int16(T v) : m_value(check(v))
    {}

    constexpr operator int() const { return m_value; }
    constexpr int value() const { return m_value; }

    constexpr Int16 &operator+=(int d) { m_value = check(qint64(m_value) + d); return *this; }
    constexpr Int16 &operator-=(int d) { m_value = check(qint64(m_value) - d); return *this; }
    constexpr Int16 &operator++() { return *this += 1; }
    constexpr Int16 &operator--() { return *this -= 1; }

private:
    template<std::integral T>
    static constexpr qint16 check(T v)
    {
        if constexpr (std::is_signed_v<T>) {
            if (qint64(v) < std::numeric_limits<qint16>::min() || qint64(v) > std::numeric_limits<qint16>::max())
                throw OverflowError(QStringLiteral("Overflow: %1 does not fit a 16-bit integer").arg(qint64(v)));
        } else {
            if (quint64(v) > quint64(std::numeric_limits<qint16>::max()))
                throw OverflowError(QStringLiteral("Overflow: %1 does not fit a 16-bit integer").arg(quint64(v)));
        }
        return qint16(v);
    }

    qint16 m_value = 0;
};

/// Fixed array indexed from First to Last inclusive; an index outside throws RangeError.
template<typename T, int First, int Last>
class Array
{
    static_assert(First <= Last);

public:
    static constexpr int first = First;
    static constexpr int last = Last;

    T &operator[](int i) { return m_items[offset(i)]; }
    const T &operator[](int i) const { return m_items[offset(i)]; }

    void fill(const T &v) { m_items.fill(v); }
    static constexpr bool contains(int i) { return i >= First && i <= Last; }

    auto begin() { return m_items.begin(); }
    auto end() { return m_items.end(); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    static std::size_t offset(int i)
    {
        if (i < First || i > Last)
            throw RangeError(QStringLiteral("Subscript out of range: %1 not in %2..%3").arg(i).arg(First).arg(Last));
        return std::size_t(i - First);
    }

    std::array<T, std::size_t(Last - First + 1)> m_items{};
};

} // namespace sd
