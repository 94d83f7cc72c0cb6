#pragma once

#include "platform_types.h"

/// Root of everything that is counted. A new object has the count 0; the first holder makes it 1, and the Release that
/// brings it back to 0 destroys the object. The count belongs to the object: copying never copies it.
class ENGINE_API IMyCom {
public:
    IMyCom() = default;
    IMyCom(const IMyCom&) {}
    IMyCom& operator=(const IMyCom&) { return *this; }
    virtual ~IMyCom() = default;
    /// Runs when the last holder lets go, ahead of the destructor.
    virtual void on_before_release() {}

    void AddRef() { ++m_count; }
    void Release() {
        if (--m_count > 0) return;
        on_before_release();
        delete this;
    }

private:
    long m_count = 0;
};

/// Holds one reference to a counted object, or nothing.
template <class T>
class CMyComPtr {
public:
    CMyComPtr() = default;
    CMyComPtr(T* object) : m_object(object) { hold(); }
    CMyComPtr(const CMyComPtr& other) : m_object(other.m_object) { hold(); }
    CMyComPtr(CMyComPtr&& other) noexcept : m_object(other.m_object) { other.m_object = nullptr; }
    template <class U>
    CMyComPtr(const CMyComPtr<U>& other) : m_object(other.get()) {
        hold();
    }
    ~CMyComPtr() {
        if (m_object) m_object->Release();
    }
    /// Takes the new object ahead of letting go of the old one, so that an object may be assigned to itself.
    CMyComPtr& operator=(CMyComPtr other) noexcept {
        T* former = m_object;
        m_object = other.m_object;
        other.m_object = former;
        return *this;
    }

    bool operator!() const { return !m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    /// The object itself, or null. The caller owns nothing of it.
    T* get() const { return m_object; }

private:
    void hold() {
        if (m_object) m_object->AddRef();
    }
    T* m_object = nullptr;
};
