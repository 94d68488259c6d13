// Owners that share what they own by counting: shared_ptr for an object, shared_array for an array.
//
// A copy costs one increment and no allocation. The count is a plain integer: owners that share must be used from one
// thread at a time. Every owner has a count, that of a null pointer too. There are no move operations, since an owner
// that had been moved from would have no count.

#ifndef VELBASE_COMMON_SMART_PTR_H
#define VELBASE_COMMON_SMART_PTR_H

#include <cstddef>
#include <cstdint>

/// Destroys and frees the object `p` (from `new`); nothing for null. Does not compile for a type that is only declared,
/// whose destructor would be left out in silence.
template <typename T> inline void checked_delete(T* p)
{
    static_assert(sizeof(T) > 0, "the type must be complete where it is deleted");
    delete p;
}

/// checked_delete for an array (from `new[]`).
template <typename T> inline void checked_array_delete(T* p)
{
    static_assert(sizeof(T) > 0, "the type must be complete where it is deleted");
    delete[] p;
}

namespace velbase_private {

/// Frees a count. A function of its own, not inline: GCC 12 does not see that the owner who frees a count is the
/// last to use it, and warns (-Wuse-after-free) wherever it sees several of them at once.
void delete_count(std::int32_t* count) noexcept;

/// What shared_ptr and shared_array have in common. `Disposal::dispose(p)` frees what was owned.
template <typename T, typename Disposal> class counted_owner {
public:
    /// Owns `p`, which may be null, with a new count of 1. Throws std::bad_alloc, and has then freed `p`.
    explicit counted_owner(T* p = nullptr)
        : m_owned(p)
        , m_count(newCount(p))
    {
    }

    /// Shares what `other` owns.
    counted_owner(const counted_owner& other) noexcept
        : m_owned(other.m_owned)
        , m_count(other.m_count)
    {
        retain();
    }

    /// Gives up what is owned and shares what `other` owns. Nothing happens if both share already.
    counted_owner& operator=(const counted_owner& other) noexcept
    {
        if (m_count == other.m_count)
            return *this;
        // `other` is read and counted first: it may live inside what this owner is about to give up.
        T* const owned = other.m_owned;
        std::int32_t* const count = other.m_count;
        other.retain();
        dispose();
        m_owned = owned;
        m_count = count;
        return *this;
    }

    /// Gives up what is owned, as dispose() does.
    ~counted_owner() { dispose(); }

    /// Gives up what is owned, which is freed with its count if this was the last owner.
    /// Afterwards this owner has neither, and its use_count() is 0, until it is assigned to, or reset to an object.
    void dispose() noexcept
    {
        if (m_count != nullptr && --*m_count == 0) {
            Disposal::dispose(m_owned);
            delete_count(m_count);
        }
        m_owned = nullptr;
        m_count = nullptr;
    }

    /// Owns `p` alone instead of what was owned, which other owners keep and which is freed if there are none.
    /// Nothing happens if `p` is what is owned already. Allocates only if others remain: the last owner's count is used
    /// again. Throws std::bad_alloc, and has then freed `p` and changed nothing.
    void reset(T* p = nullptr)
    {
        if (p == m_owned)
            return;
        if (unique()) {
            T* const last = m_owned;
            m_owned = p;
            Disposal::dispose(last);
        } else {
            std::int32_t* const fresh = newCount(p);
            dispose();
            m_owned = p;
            m_count = fresh;
        }
    }

    /// What is owned, still owned; may be null.
    T* get() const { return m_owned; }

    /// How many owners share it, this one included.
    std::int32_t use_count() const { return m_count == nullptr ? 0 : *m_count; }

    /// Whether this is its only owner.
    bool unique() const { return use_count() == 1; }

private:
    static std::int32_t* newCount(T* p)
    {
        try {
            return new std::int32_t(1);
        } catch (...) {
            Disposal::dispose(p);
            throw;
        }
    }

    void retain() const noexcept
    {
        if (m_count != nullptr)
            ++*m_count;
    }

    T* m_owned;
    std::int32_t* m_count;  // how many owners have this very pointer to it; null only after dispose()
};

/// How a shared_ptr frees what it owned.
struct object_disposal {
    /// checked_delete.
    template <typename T> static void dispose(T* p) { ::checked_delete(p); }
};

/// How a shared_array frees what it owned.
struct array_disposal {
    /// checked_array_delete.
    template <typename T> static void dispose(T* p) { ::checked_array_delete(p); }
};

}  // namespace velbase_private

/// A shared owner of one object. Its operations are those of counted_owner.
template <typename T> class shared_ptr : public velbase_private::counted_owner<T, velbase_private::object_disposal> {
public:
    /// Owns `p`, which may be null. Throws std::bad_alloc, and has then freed `p`.
    explicit shared_ptr(T* p = nullptr)
        : velbase_private::counted_owner<T, velbase_private::object_disposal>(p)
    {
    }

    /// The object; there must be one.
    T& operator*() const { return *this->get(); }
    T* operator->() const { return this->get(); }
};

/// A shared owner of an array. Its operations are those of counted_owner.
template <typename T> class shared_array : public velbase_private::counted_owner<T, velbase_private::array_disposal> {
public:
    /// Owns `p`, which may be null. Throws std::bad_alloc, and has then freed `p`.
    explicit shared_array(T* p = nullptr)
        : velbase_private::counted_owner<T, velbase_private::array_disposal>(p)
    {
    }

    /// The element at `index`, which must be inside the array.
    T& operator[](std::size_t index) const { return this->get()[index]; }
};

static_assert(sizeof(shared_ptr<char>) == 2 * sizeof(void*), "an owner is two words, what it owns and the count");

#endif
