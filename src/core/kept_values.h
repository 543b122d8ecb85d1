#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <utility>

namespace quelmont {

/// Values that took time to be worked out, kept for the next time that they are wanted: those used last, up
/// to a number of bytes. Nothing may depend on whether a value is still there.
template <class Key, class Value>
class KeptValues {
public:
    /// limit: bytes of all values together.
    explicit KeptValues(std::size_t limit_) : limit(limit_) {}

    /// Null if there is none, or no longer.
    std::shared_ptr<const Value> Find(const Key& key) {
        for (auto entry = entries.begin(); entry != entries.end(); ++entry) {
            if (entry->key == key) {
                entries.splice(entries.begin(), entries, entry);
                return entry->value;
            }
        }
        return nullptr;
    }

    /// bytes: about what the value takes. One of more than the limit is not kept.
    void Keep(Key key, std::shared_ptr<const Value> value, std::size_t bytes) {
        if (bytes > limit) {
            return;
        }
        entries.push_front({std::move(key), std::move(value), bytes});
        used += bytes;
        while (used > limit) {
            used -= entries.back().bytes;
            entries.pop_back();
        }
    }

private:
    struct Entry {
        Key key;
        std::shared_ptr<const Value> value;
        std::size_t bytes;
    };
    std::size_t limit;
    std::size_t used = 0;
    std::list<Entry> entries; ///< the one used last before the others
};

} // namespace quelmont
