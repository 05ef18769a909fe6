#include "runtime/Object.h"
#include "runtime/Ref.h"

#include <gtest/gtest.h>
#include <thread>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace {

using namespace TBF;

class Counted : public Object<Counted> {
public:
    explicit Counted(int& alive)
        : living(alive) {
        ++living;
    }
    ~Counted() override { --living; }

private:
    int& living;
};

class Derived final : public Counted {
public:
    using Counted::Counted;
};

class PrivatelyMade final : public Object<PrivatelyMade> {
    friend class Object<PrivatelyMade>;
    PrivatelyMade() = default;
};

static_assert(!std::is_convertible_v<Counted*, Ref<Counted>>, "a raw handle may be owned or borrowed");
static_assert(!std::is_convertible_v<Ref<const Counted>, Ref<Counted>>);
static_assert(!std::is_convertible_v<Ref<Counted>, Ref<Derived>>);
static_assert(std::is_nothrow_move_constructible_v<Ref<Counted>>);

TEST(Ref, EveryReferenceTakenIsGivenBack) {
    int alive = 0;
    {
        Ref<Counted> a = make<Counted>(alive);
        EXPECT_TRUE(a->isUnique());
        const Ref<Counted> b = a;
        EXPECT_FALSE(a->isUnique());
        const Ref<Counted> moved = std::move(a);
        EXPECT_FALSE(a);
        EXPECT_EQ(moved, b);
        const Ref<Counted> borrowed = retain(b.get());
        Ref<Counted> owned = adopt(Ref<Counted>(b).leak());
        owned = owned;
        owned = std::move(owned);
        owned = nullptr;
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Ref, AssigningAnObjectWhichTheOldOneOwnsKeepsIt) {
    struct Chain : Object<Chain> {
        explicit Chain(Ref<Chain> tail)
            : next(std::move(tail)) {}
        Ref<Chain> next;
    };
    Ref<Chain> list = make<Chain>(make<Chain>(nullptr));
    Chain* const second = list->next.get();
    list = list->next;
    EXPECT_EQ(list.get(), second);
    EXPECT_TRUE(list->isUnique());
}

TEST(Ref, ConvertsToBaseAndConst) {
    int alive = 0;
    {
        const Ref<Derived> derived = make<Derived>(alive);
        Ref<const Counted> base = derived;
        EXPECT_EQ(base, derived);
        base = make<Derived>(alive);
        EXPECT_NE(base, derived);
        EXPECT_EQ(alive, 2);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Ref, NullIsAnAcceptedHandle) {
    Ref<Counted> none = retain<Counted>(nullptr);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(adopt<Counted>(nullptr), none);
    EXPECT_EQ(none.leak(), nullptr);
    none.reset();
    EXPECT_FALSE(none);
}

TEST(Ref, IsAKeyByIdentity) {
    const Ref<PrivatelyMade> a = make<PrivatelyMade>();
    const Ref<PrivatelyMade> b = make<PrivatelyMade>();
    const std::unordered_set<Ref<PrivatelyMade>> set{a, b, a};
    EXPECT_EQ(set.size(), 2U);
    EXPECT_EQ(a < b, a.get() < b.get());
}

TEST(Ref, ThreadsShareOneObject) {
    int alive = 0;
    {
        const Ref<Counted> shared = make<Counted>(alive);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&shared] {
                for (int turn = 0; turn < 20000; ++turn) {
                    Ref<Counted> mine = shared;
                    const Ref<Counted> other = std::move(mine);
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_TRUE(shared->isUnique());
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
