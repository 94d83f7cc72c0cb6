#pragma once

#include <functional>

#include "engine/engine_system.h"

/// A script whose body is a function of the test.
class ScratchScript final : public IScriptFunction {
public:
    explicit ScratchScript(std::function<void()> what) : body(std::move(what)) {}
    /// Touches its own body once more behind the call, so that a script freed while it runs does not go unseen.
    void run() override {
        body();
        ++runs;
    }
    int runs = 0;
    std::function<void()> body;
};

inline CMyComPtr<IScriptFunction> script(std::function<void()> body) {
    return CMyComPtr<IScriptFunction>(new ScratchScript(std::move(body)));
}
