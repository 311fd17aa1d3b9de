// Memory for what a run records at every step (its steps, the nodes of its
// histories, their snapshots) and for the states of its search. These are
// millions of small objects of a few sizes, most of which live until the
// diagram is written. Free lists over large blocks serve them faster than
// malloc, and the blocks ask the kernel for huge pages, which spares a page
// fault per 4 KB and most TLB misses when the history is walked.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <memory_resource>
#include <utility>
#include <vector>

// One free list per multiple of the granule up to the largest pooled size;
// anything larger or more aligned goes to the usual heap. Blocks go back to
// the system only with the pool.
class StepPool final : public std::pmr::memory_resource {
public:
    static constexpr std::size_t Granule = 16;
    static constexpr std::size_t LargestPooled = 1024;

    StepPool() = default;
    ~StepPool() override;
    StepPool(StepPool const&) = delete;
    StepPool& operator=(StepPool const&) = delete;

private:
    struct FreeBlock {
        FreeBlock* next;
    };

    void* do_allocate(std::size_t bytes, std::size_t alignment) override;
    void do_deallocate(void* pointer, std::size_t bytes, std::size_t alignment) override;
    bool do_is_equal(std::pmr::memory_resource const& other) const noexcept override;
    void* carve(std::size_t bytes);
    void newBlock();

    std::array<FreeBlock*, LargestPooled / Granule> m_free{};
    std::byte* m_next = nullptr;
    std::byte* m_end = nullptr;
    // Each block as mapped, for the destructor.
    std::vector<std::pair<void*, std::size_t>> m_blocks;
};

// Process-wide and, like the run, for one thread: a StepPool that is never
// destroyed; under the address sanitizer, which must see every object on its
// own, plain new and delete.
std::pmr::memory_resource& RunMemory();

// A shared object whose memory, control block included, comes from RunMemory.
template <class T, class... Args> std::shared_ptr<T> MakeRunShared(Args&&... args) {
    return std::allocate_shared<T>(std::pmr::polymorphic_allocator<T>(&RunMemory()),
                                   std::forward<Args>(args)...);
}
