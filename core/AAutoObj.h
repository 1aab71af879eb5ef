#pragma once

// AAutoObj is the root of every reference-counted object of the model and the services.
// It holds the one shared count that TAutoPtr takes and gives up. The count is never
// copied: a copy of an object starts fresh (-1), and assignment leaves both counts alone.
#include <atomic>
#include <cstdint>

class AAutoObj
{
public:
    AAutoObj() noexcept : mRefCount(-1) {}
    AAutoObj(const AAutoObj &) noexcept : mRefCount(-1) {}
    AAutoObj &operator=(const AAutoObj &) noexcept { return *this; }
    virtual ~AAutoObj() = default;

    // -1: never held; 1 or more: number of holders; 0: being destroyed.
    std::int32_t refCount() const noexcept { return mRefCount.load(std::memory_order_relaxed); }

    // Takes one share: the first share turns the fresh -1 into 1, later ones increment.
    // The plain load spares the compare-exchange once the object has been shared, so a
    // copy costs one interlocked operation; a failed exchange still falls back to increment.
    void takeShare() const noexcept
    {
        std::int32_t expected = -1;
        if (mRefCount.load(std::memory_order_relaxed) == -1
            && mRefCount.compare_exchange_strong(expected, 1, std::memory_order_acq_rel)) {
            return;
        }
        mRefCount.fetch_add(1, std::memory_order_acq_rel);
    }

    // Gives up one share and destroys the object when it was the last one.
    void giveUpShare() const noexcept
    {
        if (mRefCount.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

private:
    mutable std::atomic<std::int32_t> mRefCount;
};

static_assert(sizeof(std::atomic<std::int32_t>) == 4, "the count is a signed 32-bit field");
