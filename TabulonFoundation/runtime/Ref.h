#pragma once

// The owner of one reference to a counted object. Copying retains, moving steals, destruction
// releases. A raw handle never becomes a Ref silently, because it may be owned or borrowed:
//
//     Ref<Value> a = adopt(TBFValueCreate(...));   // takes over the reference of a Create or Copy
//     Ref<Value> b = retain(TBFValueGet(...));     // shares what a Get lent
//     Ref<Value> c = make<Value>(...);             // a new object
//     return c.leak();                             // gives the reference to a caller
//
// Inside of a counted class, whose own `retain` hides the function, it is written `TBF::retain(...)`.
//
// A Ref may be null; a moved-from Ref is null. `Ref<const T>` works as well as `Ref<T>`. Different Refs
// to one object may be used on different threads, one Ref only on one thread at a time. `T` may be
// incomplete where a Ref is only declared, as a member of a class whose constructors and destructor
// stand in its source file.

#include <compare>
#include <concepts>
#include <cstddef>
#include <functional>
#include <utility>

namespace TBF {

template <typename T>
class Ref {
public:
    using element_type = T;

    constexpr Ref() noexcept = default;
    constexpr Ref(std::nullptr_t) noexcept {}

    Ref(const Ref& other) noexcept
        : object(other.object) {
        retainObject();
    }
    Ref(Ref&& other) noexcept
        : object(std::exchange(other.object, nullptr)) {}

    // From a Ref of a deriving class, or from `Ref<T>` to `Ref<const T>`.
    template <typename U>
    requires std::convertible_to<U*, T*> Ref(const Ref<U>& other)
    noexcept
        : object(other.get()) {
        retainObject();
    }
    template <typename U>
    requires std::convertible_to<U*, T*> Ref(Ref<U>&& other)
    noexcept
        : object(other.leak()) {}

    ~Ref() {
        if (object) object->release();
    }

    // Takes its argument by value and swaps, so that assigning a Ref to itself is safe.
    Ref& operator=(Ref other) noexcept {
        swap(other);
        return *this;
    }

    // Takes over the caller's reference to `owned`; null is allowed.
    [[nodiscard]] static Ref adopting(T* owned) noexcept {
        Ref result;
        result.object = owned;
        return result;
    }

    // Borrowed: valid as long as this or another owner holds the object.
    T* get() const noexcept { return object; }
    T& operator*() const noexcept { return *object; }
    T* operator->() const noexcept { return object; }
    explicit operator bool() const noexcept { return object != nullptr; }

    // Gives the reference to the caller, who must release it; this Ref is null afterwards.
    [[nodiscard]] T* leak() noexcept { return std::exchange(object, nullptr); }

    void reset() noexcept { Ref().swap(*this); }
    void swap(Ref& other) noexcept { std::swap(object, other.object); }
    friend void swap(Ref& a, Ref& b) noexcept { a.swap(b); }

private:
    void retainObject() const noexcept {
        if (object) object->retain();
    }

    T* object = nullptr;
};

// Refs compare by identity, never by content.
template <typename T, typename U>
bool operator==(const Ref<T>& a, const Ref<U>& b) noexcept {
    return a.get() == b.get();
}
template <typename T, typename U>
bool operator==(const Ref<T>& a, const U* b) noexcept {
    return a.get() == b;
}
template <typename T>
bool operator==(const Ref<T>& a, std::nullptr_t) noexcept {
    return a.get() == nullptr;
}
template <typename T>
std::strong_ordering operator<=>(const Ref<T>& a, const Ref<T>& b) noexcept {
    return std::compare_three_way()(a.get(), b.get());
}

// Takes over the +1 reference which a Create or Copy function returned; null gives a null Ref.
template <typename T>
[[nodiscard]] Ref<T> adopt(T* owned) noexcept {
    return Ref<T>::adopting(owned);
}

// Adds a reference to a borrowed object; null gives a null Ref.
template <typename T>
[[nodiscard]] Ref<T> retain(T* borrowed) noexcept {
    if (borrowed) borrowed->retain();
    return Ref<T>::adopting(borrowed);
}

// A new object, made with the arguments of its constructor.
template <typename T, typename... Arguments>
[[nodiscard]] Ref<T> make(Arguments&&... arguments) {
    return Ref<T>::adopting(T::template construct<T>(std::forward<Arguments>(arguments)...));
}

} // namespace TBF

template <typename T>
struct std::hash<TBF::Ref<T>> {
    std::size_t operator()(const TBF::Ref<T>& ref) const noexcept { return std::hash<T*>()(ref.get()); }
};
