// Converted text: its encoding, and room that grows without clearing what it grows by.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string_view>
#include <utility>

// Utf16 is little-endian without a mark.
enum class OutputEncoding { Utf8, Utf16 };

template <class T>
class RawBuffer {
public:
    RawBuffer() = default;
    ~RawBuffer() { std::free(m_Data); }
    RawBuffer(const RawBuffer&) = delete;
    RawBuffer& operator=(const RawBuffer&) = delete;

    T* Data() { return m_Data; }
    const T* Data() const { return m_Data; }
    std::size_t Size() const { return m_Size; }
    std::basic_string_view<T> View() const { return {m_Data, m_Size}; }

    // Where the next elements go, with room for at least this many.
    T* Room(std::size_t more) {
        if (m_Capacity - m_Size < more) Grow(more);
        return m_Data + m_Size;
    }
    // Elements written behind Room become part of the buffer.
    void Add(std::size_t more) { m_Size += more; }
    // What lies behind size, up to the room taken, stays where it is.
    void SetSize(std::size_t size) { m_Size = size; }
    void Clear() { m_Size = 0; }
    void Append(std::basic_string_view<T> elements) {
        std::copy(elements.begin(), elements.end(), Room(elements.size()));
        m_Size += elements.size();
    }
    // Takes over the bytes of other, which must be whole elements, and leaves it empty.
    template <class U>
    void Adopt(RawBuffer<U>& other) {
        std::free(m_Data);
        m_Data = reinterpret_cast<T*>(std::exchange(other.m_Data, nullptr));
        m_Size = std::exchange(other.m_Size, 0) * sizeof(U) / sizeof(T);
        m_Capacity = std::exchange(other.m_Capacity, 0) * sizeof(U) / sizeof(T);
    }

private:
    template <class U>
    friend class RawBuffer;

    void Grow(std::size_t more) {
        const std::size_t capacity = std::max({m_Size + more, m_Capacity + m_Capacity / 2, std::size_t{64}});
        void* const data = std::realloc(m_Data, capacity * sizeof(T));
        if (data == nullptr) throw std::bad_alloc();
        m_Data = static_cast<T*>(data);
        m_Capacity = capacity;
    }

    T* m_Data = nullptr;
    std::size_t m_Size = 0;
    std::size_t m_Capacity = 0;
};

// Bytes on their way out, and a line of code units that is worked on.
using OutputBuffer = RawBuffer<char>;
using UnitBuffer = RawBuffer<char16_t>;
