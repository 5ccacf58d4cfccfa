#ifndef LAZYINSTANCE_P_H
#define LAZYINSTANCE_P_H

#include <atomic>
#include <mutex>

namespace lxcolor {

/**
 * The process-wide object of a registry: made on first use, never destroyed, safe when first uses race.
 *
 * A complete instance costs one atomic load. Making one holds the lock, so that other threads see it only when it is
 * complete. \a make(store) calls store(object) once; what it does after that (filling the object) may ask for the
 * instance again on the same thread and is then answered with the stored, still incomplete object.
 */
template <typename T, typename Make>
T* lazyInstance(std::atomic<T*>& slot, Make make)
{
    if (T* complete = slot.load(std::memory_order_acquire))
        return complete;

    static std::recursive_mutex mutex;
    static T* incomplete = nullptr;
    const std::lock_guard<std::recursive_mutex> lock(mutex);
    if (T* complete = slot.load(std::memory_order_acquire))
        return complete;
    if (incomplete)
        return incomplete;
    struct Reset // also when filling runs out of memory, so that the next call starts anew
    {
        ~Reset() { incomplete = nullptr; }
    };
    const Reset reset;
    make([](T* object) { incomplete = object; });
    T* complete = incomplete;
    slot.store(complete, std::memory_order_release);
    return complete;
}

} // namespace lxcolor

#endif
