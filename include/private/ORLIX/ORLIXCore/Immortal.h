// A static object that outlives all others.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>

namespace orlix::core {

/// Makes an object that is never ended, for static objects whose destructors still need it.
template <class T>
class Immortal
{
public:
    template <class... TArgs>
    explicit Immortal(TArgs&&... args)
    {
        std::construct_at(reinterpret_cast<T*>(m_storage), std::forward<TArgs>(args)...);
    }
    Immortal(const Immortal&) = delete;
    Immortal& operator=(const Immortal&) = delete;

    T& access() { return *std::launder(reinterpret_cast<T*>(m_storage)); }

private:
    alignas(T) std::byte m_storage[sizeof(T)];
};

} // namespace orlix::core
