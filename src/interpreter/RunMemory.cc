#include "interpreter/RunMemory.h"

#include <sys/mman.h>

#include <cstdint>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define KEL_RUN_MEMORY_CHECKED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KEL_RUN_MEMORY_CHECKED 1
#endif
#endif

namespace {

constexpr std::size_t HugePage = std::size_t{2} << 20;
constexpr std::size_t BlockSize = 16 * HugePage;

std::size_t ClassOf(std::size_t bytes) {
    return (bytes + StepPool::Granule - 1) / StepPool::Granule - 1;
}

bool IsPooled(std::size_t bytes, std::size_t alignment) {
    return bytes <= StepPool::LargestPooled && alignment <= StepPool::Granule;
}

} // namespace

StepPool::~StepPool() {
    for (auto const& [address, size] : m_blocks) {
        munmap(address, size);
    }
}

void* StepPool::do_allocate(std::size_t bytes, std::size_t alignment) {
    if (!IsPooled(bytes, alignment)) {
        return std::pmr::new_delete_resource()->allocate(bytes, alignment);
    }
    auto& head = m_free[ClassOf(bytes)];
    if (head != nullptr) {
        return std::exchange(head, head->next);
    }
    return carve((ClassOf(bytes) + 1) * Granule);
}

void StepPool::do_deallocate(void* pointer, std::size_t bytes, std::size_t alignment) {
    if (!IsPooled(bytes, alignment)) {
        std::pmr::new_delete_resource()->deallocate(pointer, bytes, alignment);
        return;
    }
    auto& head = m_free[ClassOf(bytes)];
    head = ::new (pointer) FreeBlock{head};
}

bool StepPool::do_is_equal(std::pmr::memory_resource const& other) const noexcept {
    return this == &other;
}

void* StepPool::carve(std::size_t bytes) {
    if (static_cast<std::size_t>(m_end - m_next) < bytes) {
        newBlock();
    }
    return std::exchange(m_next, m_next + bytes);
}

// Aligned to a huge page, so that the kernel can back it with them.
void StepPool::newBlock() {
    std::size_t const size = BlockSize + HugePage;
    m_blocks.reserve(m_blocks.size() + 1);
    void* mapped = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) {
        throw std::bad_alloc();
    }
    m_blocks.emplace_back(mapped, size);
    auto const address = reinterpret_cast<std::uintptr_t>(mapped);
    auto* const start =
        reinterpret_cast<std::byte*>((address + HugePage - 1) / HugePage * HugePage);
    // Where huge pages are off, the advice changes nothing.
    madvise(start, BlockSize, MADV_HUGEPAGE);
    m_next = start;
    m_end = start + BlockSize;
}

std::pmr::memory_resource& RunMemory() {
#ifdef KEL_RUN_MEMORY_CHECKED
    return *std::pmr::new_delete_resource();
#else
    // Never destroyed: steps may still be released by other objects'
    // destructors at exit.
    static auto* const pool = new StepPool;
    return *pool;
#endif
}
