#include <gtest/gtest.h>

#include "LmCallbackObject.h"

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

std::string spoken;

void say(LmCallbackObject*, void* word, void*) { spoken += static_cast<const char*>(word); }

void* word(const char* text) { return const_cast<char*>(text); }

/// An object that says who it is, and does something while it is called.
struct Listener : LmCallbackObject {
    explicit Listener(const char* name) : _name(name) {}
    void heard(LmCallbackObject*, void*, void*)
    {
        spoken += _name;
        if (doing)
            doing();   // may destroy this: nothing is touched afterwards
    }
    std::function<void()> doing;

private:
    const char* _name;
};

struct CallbackModel : testing::Test {
    CallbackModel() { spoken.clear(); }
};

}   // namespace

TEST_F(CallbackModel, RegistrationsOfOneNameRunInOrderAndGoTogether)
{
    LmCallbackObject sender;
    Listener listener("l");
    sender.callCallbacks("a", nullptr);   // nothing registered yet
    sender.addCallback("a", say, word("1"));
    sender.addCallback("b", say, word("x"));
    sender.addCallback("a", &listener, &Listener::heard, nullptr);
    sender.addCallback("a", say, word("1"));
    sender.addCallback("a", static_cast<LmCallbackObject*>(nullptr), LmCallbackMethod(&Listener::heard), nullptr);
    sender.callCallbacks(std::string("a").c_str(), nullptr);   // another string of the same characters
    EXPECT_EQ(spoken, "1l1");

    sender.removeCallback("a", say, word("1"));
    sender.callCallbacks("a", nullptr);
    EXPECT_EQ(spoken, "1l1l");

    sender.cloneCallback("a", "c", &listener);
    listener.callCallbacks("c", nullptr);
    sender.cloneCallbacks(&sender);   // only what was there: no endless growth
    sender.callCallbacks("b", nullptr);
    EXPECT_EQ(spoken, "1l1llxx");
}

TEST_F(CallbackModel, ADispatchSurvivesWhateverItsCallbacksDestroy)
{
    const auto dispatch = [](auto destroy) {
        auto sender = std::make_unique<LmCallbackObject>();
        auto first = std::make_unique<Listener>("1"), second = std::make_unique<Listener>("2");
        sender->addCallback("a", first.get(), &Listener::heard, nullptr);
        sender->addCallback("a", second.get(), &Listener::heard, nullptr);
        sender->addCallback("a", say, word("3"));
        first->doing = [&] { destroy(sender, first, second); };
        spoken.clear();
        LmCallbackObject* calling = sender.get();
        calling->callCallbacks("a", nullptr);
        return spoken;
    };
    EXPECT_EQ(dispatch([](auto& sender, auto&, auto&) { sender.reset(); }), "1");
    EXPECT_EQ(dispatch([](auto& sender, auto&, auto&) { sender->removeAllCallbacks(); }), "1");
    EXPECT_EQ(dispatch([](auto&, auto&, auto& second) { second.reset(); }), "13");
    // The walk may pass over the one after a removed one, but never calls what is gone.
    EXPECT_EQ(dispatch([](auto&, auto& first, auto&) { first.reset(); }), "13");
    EXPECT_EQ(dispatch([](auto& sender, auto&, auto&) { sender->addCallback("a", say, word("4")); }), "1234");
}

TEST_F(CallbackModel, AnObjectMayListenToItself)
{
    auto object = std::make_unique<Listener>("s");
    object->addCallback("a", object.get(), &Listener::heard, nullptr);
    object->doing = [&] { object.reset(); };
    Listener* self = object.get();
    self->callCallbacks("a", nullptr);
    EXPECT_EQ(spoken, "s");
}

TEST_F(CallbackModel, ObjectsMayDieInAnyOrder)
{
    std::mt19937 random(20261122);
    const auto below = [&](size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(random); };
    for (int round = 0; round < 200; ++round) {
        std::vector<std::unique_ptr<Listener>> objects;
        for (int i = 0; i < 8; ++i)
            objects.push_back(std::make_unique<Listener>("."));
        for (int i = 0; i < 40; ++i) {
            Listener* target = objects[below(8)].get();
            objects[below(8)]->addCallback(i % 2 ? "a" : "b", target, &Listener::heard, nullptr);
        }
        for (auto& object : objects)
            object->doing = [&] {
                if (below(3) == 0)
                    objects[below(8)].reset();
            };
        for (int i = 0; i < 12; ++i) {
            if (Listener* sender = objects[below(8)].get())
                sender->callCallbacks(i % 2 ? "a" : "b", nullptr);
        }
    }
}
