#pragma once

// TAutoPtr<T> is the intrusive smart pointer of the model: the count lives in the object
// (AAutoObj), the pointer is one plain field. Conversion between pointer types is a checked
// run-time cast, so building a TAutoPtr<Kind> from a Property::Ptr and testing it for null
// asks a property for its kind. TAutoPtr<T> converts implicitly to TAutoPtr<T const>.
#include "core/AAutoObj.h"

#include <cstddef>
#include <functional>
#include <type_traits>

template<class T>
class TAutoPtr
{
    template<class U>
    friend class TAutoPtr;

    template<class U>
    using IsUpcast = std::enable_if_t<!std::is_same<U, T>::value && std::is_convertible<U *, T *>::value, int>;
    template<class U>
    using IsCheckedCast = std::enable_if_t<!std::is_convertible<U *, T *>::value
                                               && (std::is_const<T>::value || !std::is_const<U>::value),
                                           int>;

public:
    using element_type = T;

    TAutoPtr() noexcept : mObject(nullptr) {}
    TAutoPtr(std::nullptr_t) noexcept : mObject(nullptr) {}
    TAutoPtr(T *object) noexcept : mObject(object) { take(mObject); }
    TAutoPtr(const TAutoPtr &other) noexcept : mObject(other.mObject) { take(mObject); }

    // Upcasts and T -> T const are implicit.
    template<class U, IsUpcast<U> = 0>
    TAutoPtr(const TAutoPtr<U> &other) noexcept : mObject(other.mObject)
    {
        take(mObject);
    }

    // Any other conversion is a checked run-time cast: empty when the pointee is not a T.
    template<class U, IsCheckedCast<U> = 0>
    explicit TAutoPtr(const TAutoPtr<U> &other) noexcept
        : mObject(other.mObject ? dynamic_cast<T *>(other.mObject) : nullptr)
    {
        take(mObject);
    }

    virtual ~TAutoPtr() { giveUp(mObject); }

    TAutoPtr &operator=(const TAutoPtr &other) noexcept { return assign(other.mObject); }
    TAutoPtr &operator=(T *object) noexcept { return assign(object); }
    TAutoPtr &operator=(std::nullptr_t) noexcept { return assign(nullptr); }
    template<class U, IsUpcast<U> = 0>
    TAutoPtr &operator=(const TAutoPtr<U> &other) noexcept
    {
        return assign(other.mObject);
    }

    T *get() const noexcept { return mObject; }
    T &operator*() const noexcept { return *mObject; }
    T *operator->() const noexcept { return mObject; }
    explicit operator bool() const noexcept { return mObject != nullptr; }
    bool operator!() const noexcept { return mObject == nullptr; }
    bool isNull() const noexcept { return mObject == nullptr; }

private:
    static void take(T *object) noexcept
    {
        if (object)
            static_cast<const AAutoObj *>(object)->takeShare();
    }
    static void giveUp(T *object) noexcept
    {
        if (object)
            static_cast<const AAutoObj *>(object)->giveUpShare();
    }
    // Take the new share before giving up the old one: assigning a pointer to itself, or
    // to an object reached only through the old pointee, never destroys it in between.
    TAutoPtr &assign(T *object) noexcept
    {
        take(object);
        T *old = mObject;
        mObject = object;
        giveUp(old);
        return *this;
    }

    T *mObject;
};

namespace TAutoPtrDetail {
// The address two pointers are compared by. When one pointer type converts to the other,
// both are seen through the common type, as plain C++ pointers are; otherwise by the address
// of the whole object, so a group seen as a Property and as a PropertyDictionary is one key.
template<class T, class U>
const void *comparable(T *p) noexcept
{
    using TT = std::remove_cv_t<T>;
    using UU = std::remove_cv_t<U>;
    if constexpr (std::is_same<TT, UU>::value || std::is_convertible<TT *, UU *>::value)
        return static_cast<const UU *>(p);
    else if constexpr (std::is_convertible<UU *, TT *>::value)
        return static_cast<const TT *>(p);
    else
        return p ? dynamic_cast<const void *>(p) : nullptr;
}
} // namespace TAutoPtrDetail

// Comparison and ordering go by the address of the pointee, across const and kind.
template<class T, class U>
bool operator==(const TAutoPtr<T> &a, const TAutoPtr<U> &b) noexcept
{
    return TAutoPtrDetail::comparable<T, U>(a.get()) == TAutoPtrDetail::comparable<U, T>(b.get());
}
template<class T, class U>
bool operator!=(const TAutoPtr<T> &a, const TAutoPtr<U> &b) noexcept
{
    return !(a == b);
}
template<class T, class U>
bool operator<(const TAutoPtr<T> &a, const TAutoPtr<U> &b) noexcept
{
    return std::less<const void *>()(TAutoPtrDetail::comparable<T, U>(a.get()),
                                     TAutoPtrDetail::comparable<U, T>(b.get()));
}
template<class T>
bool operator==(const TAutoPtr<T> &a, std::nullptr_t) noexcept
{
    return a.get() == nullptr;
}
template<class T>
bool operator!=(const TAutoPtr<T> &a, std::nullptr_t) noexcept
{
    return a.get() != nullptr;
}
template<class T>
bool operator==(std::nullptr_t, const TAutoPtr<T> &a) noexcept
{
    return a.get() == nullptr;
}
template<class T>
bool operator!=(std::nullptr_t, const TAutoPtr<T> &a) noexcept
{
    return a.get() != nullptr;
}
