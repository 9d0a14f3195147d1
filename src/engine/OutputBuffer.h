// Bytes on their way out: grows without clearing what it grows by.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string_view>

class OutputBuffer {
public:
    OutputBuffer() = default;
    ~OutputBuffer() { std::free(m_Data); }
    OutputBuffer(const OutputBuffer&) = delete;
    OutputBuffer& operator=(const OutputBuffer&) = delete;

    const char* Data() const { return m_Data; }
    std::size_t Size() const { return m_Size; }
    std::string_view View() const { return {m_Data, m_Size}; }
    void Clear() { m_Size = 0; }

    // Where the next bytes go, with room for at least this many.
    char* Room(std::size_t bytes) {
        if (m_Capacity - m_Size < bytes) Grow(bytes);
        return m_Data + m_Size;
    }
    // Bytes written behind Room become part of the buffer.
    void Add(std::size_t bytes) { m_Size += bytes; }

private:
    void Grow(std::size_t bytes) {
        const std::size_t capacity = std::max(m_Size + bytes, m_Capacity + m_Capacity / 2);
        void* const data = std::realloc(m_Data, capacity);
        if (data == nullptr) throw std::bad_alloc();
        m_Data = static_cast<char*>(data);
        m_Capacity = capacity;
    }

    char* m_Data = nullptr;
    std::size_t m_Size = 0;
    std::size_t m_Capacity = 0;
};
