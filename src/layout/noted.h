#pragma once

/// A field that anyone may read and write as a plain T, while each writing is counted in Owner::s_noted_writes: what is
/// known of many items at once, such as which of them lie under the mouse, is then found again only after a change. To
/// read a part of it: `field->part`. A part is written by writing the whole.
template <class T, class Owner>
class Noted {
public:
    constexpr Noted() = default;
    constexpr Noted(const T& value) : m_value(value) {}
    Noted(const Noted& other) = default;
    Noted& operator=(const Noted& other) { return *this = other.m_value; }
    Noted& operator=(const T& value) {
        to_write() = value;
        return *this;
    }
    ~Noted() = default;

    constexpr operator const T&() const { return m_value; }
    constexpr const T* operator->() const { return &m_value; }

    /// For code that writes by address, and at once: a later writing there is not counted. What only might write, as
    /// the table of persisted fields, counts too.
    T& to_write() {
        ++Owner::s_noted_writes;
        return m_value;
    }

private:
    T m_value{};
};
