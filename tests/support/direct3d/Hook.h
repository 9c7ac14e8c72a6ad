// Stands in for one operation of the platform's objects, to see how it is called or to make it fail.
//
//     Hook<&ID3D11Device::CreateBuffer> buffers(device);                    // only listens
//     Hook<&ID3D11Device::CreateBuffer> fails(device, Always(E_OUTOFMEMORY)); // answers itself
//
// The operation is exchanged in the table that all objects of the class share, so it counts for renderers
// made later, too, and goes back when the hook goes. One hook for an operation at a time, one thread.
#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <tuple>
#include <utility>
#include <vector>

namespace orvane::tests {

template <auto kOperation>
class Hook;

template <class Interface, class Result, class... Arguments,
          Result (STDMETHODCALLTYPE Interface::*kOperation)(Arguments...)>
class Hook<kOperation> {
public:
    using Function = Result(STDMETHODCALLTYPE*)(Interface*, Arguments...);
    // Gets the arguments; may call `next`, the real operation, with them or others.
    using Behaviour = std::function<Result(const std::function<Result(Arguments...)>& next, Arguments...)>;

    explicit Hook(
        Interface* object,
        Behaviour behaviour = [](const auto& next, Arguments... arguments) { return next(arguments...); })
        : mEntry(EntryOf(object))
        , mBehaviour(std::move(behaviour)) {
        std::memcpy(&mOriginal, mEntry, sizeof mOriginal);
        sCurrent = this;
        Replace(&Hook::Stand);
    }

    ~Hook() {
        Replace(mOriginal);
        sCurrent = nullptr;
    }

    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;

    // The arguments of each call so far. What they point to may be gone.
    [[nodiscard]] const std::vector<std::tuple<Arguments...>>& Calls() const { return mCalls; }

private:
    // A pointer to a virtual operation is one more than the offset of its entry in the table.
    static void** EntryOf(Interface* object) {
        auto operation = kOperation;
        std::uintptr_t offset = 0;
        std::memcpy(&offset, &operation, sizeof offset);
        char* table = nullptr;
        std::memcpy(&table, object, sizeof table);
        return reinterpret_cast<void**>(table + offset - 1);
    }

    void Replace(Function function) {
        DWORD protection = 0;
        VirtualProtect(mEntry, sizeof(void*), PAGE_EXECUTE_READWRITE, &protection);
        std::memcpy(mEntry, &function, sizeof function);
        VirtualProtect(mEntry, sizeof(void*), protection, &protection);
    }

    static Result STDMETHODCALLTYPE Stand(Interface* object, Arguments... arguments) {
        Hook& hook = *sCurrent;
        hook.mCalls.emplace_back(arguments...);
        const std::function<Result(Arguments...)> next = [&hook, object](Arguments... passed) {
            return hook.mOriginal(object, passed...);
        };
        return hook.mBehaviour(next, arguments...);
    }

    inline static Hook* sCurrent = nullptr;
    void** const mEntry;
    const Behaviour mBehaviour;
    Function mOriginal = nullptr;
    std::vector<std::tuple<Arguments...>> mCalls;
};

// The same answer to every call, and no call of the real operation.
template <class Result>
auto Always(Result result) {
    return [result](const auto&, auto&&...) { return result; };
}

// The real operation for the first `count` calls, then always `result`.
template <class Result>
auto After(int count, Result result) {
    return [count, result](const auto& next, auto... arguments) mutable {
        return count-- > 0 ? next(arguments...) : result;
    };
}

} // namespace orvane::tests
