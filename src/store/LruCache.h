#pragma once

#include <cstddef>
#include <iterator>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace FX_Algen::store {

/// Entries by text, of which the least recently used goes when there are too many. Several entries may stand
/// under one text; the seeker tells them apart.
template <class Entry>
class LruCache {
public:
    explicit LruCache(std::size_t limit) : limit_(limit) {}

    /// The entry of that key for which `fits(entry)` holds; nullptr if there is none. It stays where it is
    /// until the next `Add`, `EraseIf` or `Clear`.
    template <class Fits>
    Entry* Find(std::string_view key, Fits fits) {
        auto [at, end] = places_.equal_range(key);
        for (; at != end; ++at) {
            const auto place = at->second;
            if (!fits(place->second)) continue;
            entries_.splice(entries_.begin(), entries_, place);
            return &place->second;
        }
        return nullptr;
    }
    Entry* Find(std::string_view key) {
        return Find(key, [](const Entry&) { return true; });
    }

    Entry& Add(std::string key, Entry entry) {
        while (entries_.size() >= limit_) DropOldest();
        entries_.emplace_front(std::move(key), std::move(entry));
        places_.emplace(entries_.front().first, entries_.begin());
        return entries_.front().second;
    }

    /// An entry that is not kept: it stays where it is until the next `Pass`, `EraseIf` or `Clear`.
    Entry& Pass(Entry entry) { return passing_.emplace(std::move(entry)); }

    /// Drops the entries for which `drop(key, entry)` holds, and the one that is not kept.
    template <class Drop>
    void EraseIf(Drop drop) {
        passing_.reset();
        for (auto at = entries_.begin(); at != entries_.end();) {
            const auto here = at++;
            if (drop(std::string_view(here->first), here->second)) Erase(here);
        }
    }

    void Clear() {
        passing_.reset();
        places_.clear();
        entries_.clear();
    }

    std::size_t Size() const noexcept { return entries_.size(); }

private:
    using List = std::list<std::pair<const std::string, Entry>>;

    void DropOldest() { Erase(std::prev(entries_.end())); }

    void Erase(typename List::iterator entry) {
        auto [at, end] = places_.equal_range(entry->first);
        while (at != end && at->second != entry) ++at;
        places_.erase(at);
        entries_.erase(entry);
    }

    std::size_t limit_;
    std::optional<Entry> passing_;
    List entries_;  ///< most recently used first
    /// The keys are those of the entries.
    std::unordered_multimap<std::string_view, typename List::iterator> places_;
};

}  // namespace FX_Algen::store
