#include "system/LimitedToken.h"

namespace orvane::tests {

namespace {

player::UniqueHandle OwnToken() {
    HANDLE token = nullptr;
    constexpr DWORD kAccess = TOKEN_QUERY | TOKEN_DUPLICATE;
    return OpenProcessToken(GetCurrentProcess(), kAccess, &token) ? player::Adopt(token) : nullptr;
}

player::UniqueHandle LinkedToken(HANDLE token) {
    TOKEN_LINKED_TOKEN linked = {};
    DWORD length = 0;
    const BOOL read = GetTokenInformation(token, TokenLinkedToken, &linked, sizeof(linked), &length);
    return read ? player::Adopt(linked.LinkedToken) : nullptr;
}

} // namespace

int OwnElevationType() {
    const player::UniqueHandle token = OwnToken();
    TOKEN_ELEVATION_TYPE type = {};
    DWORD length = 0;
    const BOOL read = GetTokenInformation(token.get(), TokenElevationType, &type, sizeof(type), &length);
    return read ? int(type) : 0;
}

player::UniqueHandle MakeLimitedToken() {
    player::UniqueHandle source = OwnToken();
    if (OwnElevationType() == TokenElevationTypeFull) source = LinkedToken(source.get());
    HANDLE primary = nullptr;
    if (!DuplicateTokenEx(source.get(), MAXIMUM_ALLOWED, nullptr, SecurityImpersonation, TokenPrimary,
                          &primary))
        return nullptr;
    return player::Adopt(primary);
}

} // namespace orvane::tests
