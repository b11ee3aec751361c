// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>

#include <functional>

// Registers `empty` to run when the application object goes, before Qt tears down what the
// emptied values may still need; each registration runs once.
void emptyWithApplication(std::function<void()> empty);

// What the programme parses once and shares for the rest of the run: icons, SVG renderers, text
// documents. Qt objects must not outlive the application object, so the cache empties itself
// when it goes (and fills again should another one come).
template <class Key, class Value> class RunCache {
public:
    RunCache() = default;
    RunCache(const RunCache &) = delete;
    RunCache &operator=(const RunCache &) = delete;

    // The value for `key`, default-made when there is none yet.
    Value &operator[](const Key &key) {
        if (items_.isEmpty())
            emptyWithApplication([this] { items_.clear(); });
        return items_[key];
    }
    const Value *find(const Key &key) const {
        const auto it = items_.constFind(key);
        return it == items_.constEnd() ? nullptr : &*it;
    }
    qsizetype size() const { return items_.size(); }

private:
    QHash<Key, Value> items_;
};
