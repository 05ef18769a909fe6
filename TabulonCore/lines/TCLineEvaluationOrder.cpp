#include "lines/TCLineEvaluationOrder.h"

#include <algorithm>
#include <utility>

namespace {

// Tarjan's strongly connected components, which come out with what they read ahead of them. Slots are
// positions among the sorted indexes.
class OrderBuilder {
public:
    OrderBuilder(std::vector<uint32_t> lineIndexes,
                 const std::function<std::vector<uint32_t>(uint32_t)>& linesReadBy)
        : indexes(std::move(lineIndexes))
        , readBy(linesReadBy)
        , slots(indexes.size()) {
        order.reserve(indexes.size());
    }

    std::vector<TCLineEvaluationStep> build() {
        for (std::size_t slot = 0; slot < slots.size(); ++slot) {
            if (slots[slot].number == 0) enter(slot);
            while (!way.empty())
                advance();
        }
        return std::move(order);
    }

private:
    struct Slot {
        std::size_t number = 0; // in the order of arrival, from 1; 0 before
        std::size_t lowest = 0; // that it leads back to
        bool isOpen = false;    // its component isn't complete
        bool readsItself = false;
    };
    struct Place {
        std::size_t slot;
        std::vector<uint32_t> reads;
        std::size_t next = 0;
    };

    void enter(std::size_t slot) {
        slots[slot].number = slots[slot].lowest = ++arrivals;
        slots[slot].isOpen = true;
        open.push_back(slot);
        way.push_back({slot, readBy(indexes[slot])});
    }

    void advance() {
        Place& place = way.back();
        Slot& slot = slots[place.slot];
        if (place.next == place.reads.size()) {
            leave();
            return;
        }
        const uint32_t read = place.reads[place.next++];
        const auto found = std::lower_bound(indexes.begin(), indexes.end(), read);
        if (found == indexes.end() || *found != read) return;
        const auto target = static_cast<std::size_t>(found - indexes.begin());
        if (target == place.slot) slot.readsItself = true;
        if (slots[target].number == 0)
            enter(target); // may move `place`
        else if (slots[target].isOpen)
            slot.lowest = std::min(slot.lowest, slots[target].number);
    }

    void leave() {
        const std::size_t left = way.back().slot;
        way.pop_back();
        if (!way.empty()) {
            Slot& above = slots[way.back().slot];
            above.lowest = std::min(above.lowest, slots[left].lowest);
        }
        if (slots[left].lowest == slots[left].number) closeComponent(left);
    }

    void closeComponent(std::size_t root) {
        const bool isOnCycle = open.back() != root || slots[root].readsItself;
        std::size_t slot = 0;
        do {
            slot = open.back();
            open.pop_back();
            slots[slot].isOpen = false;
            order.push_back({indexes[slot], isOnCycle});
        } while (slot != root);
    }

    std::vector<uint32_t> indexes;
    const std::function<std::vector<uint32_t>(uint32_t)>& readBy;
    std::vector<Slot> slots;
    std::vector<Place> way;
    std::vector<std::size_t> open;
    std::size_t arrivals = 0;
    std::vector<TCLineEvaluationStep> order;
};

} // namespace

std::vector<TCLineEvaluationStep>
TCLineEvaluationOrder(std::vector<uint32_t> lineIndexes,
                      const std::function<std::vector<uint32_t>(uint32_t lineIndex)>& linesReadBy) {
    std::sort(lineIndexes.begin(), lineIndexes.end());
    return OrderBuilder(std::move(lineIndexes), linesReadBy).build();
}
