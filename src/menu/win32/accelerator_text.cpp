// Names of keys, in the language of the keyboard.
#include "menu/win32/accelerator_text.h"

#include <algorithm>
#include <vector>

namespace
{
std::wstring KeyName(UINT nKey)
{
    // These share their scan codes with the digits of the key pad.
    constexpr UINT EXTENDED[] = { VK_INSERT, VK_DELETE, VK_HOME, VK_END,   VK_PRIOR,
                                  VK_NEXT,   VK_LEFT,   VK_UP,   VK_RIGHT, VK_DOWN };
    const UINT nScan = ::MapVirtualKeyW(nKey, MAPVK_VK_TO_VSC);
    const bool bExtended = std::ranges::find(EXTENDED, nKey) != std::end(EXTENDED);
    wchar_t szName[64] = L"";
    ::GetKeyNameTextW(static_cast<LONG>(nScan << 16 | (bExtended ? 1U << 24 : 0)), szName,
                      static_cast<int>(std::size(szName)));
    return szName;
}

std::wstring Name(const ACCEL& accelerator)
{
    if ((accelerator.fVirt & FVIRTKEY) == 0)
        return std::wstring(1, static_cast<wchar_t>(accelerator.key));
    struct CModifier
    {
        BYTE nFlag;
        UINT nKey;
    };
    constexpr CModifier MODIFIERS[] = { { FCONTROL, VK_CONTROL },
                                        { FALT, VK_MENU },
                                        { FSHIFT, VK_SHIFT } };
    std::wstring name;
    for (const CModifier& modifier : MODIFIERS)
    {
        if ((accelerator.fVirt & modifier.nFlag) != 0)
            name += KeyName(modifier.nKey) + L"+";
    }
    return name + KeyName(accelerator.key);
}
}  // namespace

std::wstring AcceleratorText(HACCEL hAccelerators, UINT nCommand)
{
    const int nKeys = ::CopyAcceleratorTableW(hAccelerators, nullptr, 0);
    std::vector<ACCEL> keys(static_cast<std::size_t>(std::max(nKeys, 0)));
    ::CopyAcceleratorTableW(hAccelerators, keys.data(), nKeys);
    const auto found = std::ranges::find(keys, nCommand, &ACCEL::cmd);
    return found != keys.end() ? L'\t' + Name(*found) : std::wstring();
}
