// What shows on a Windows machine, for tests that operate programs with the mouse: a line for each visible
// window and each of its visible controls, "X Y WIDTH HEIGHT TEXT" in pixels of the screen and UTF-8. Nothing
// is judged here.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace {

constexpr UINT ATTESA = 2000; // ms for a window that answers
constexpr int LUNGHEZZA = 2000;

std::string In_Utf8(const std::wstring &testo)
{
    const auto lungo = static_cast<int>(testo.size());
    std::string byte(testo.size() * 3, '\0');
    byte.resize(static_cast<size_t>(WideCharToMultiByte(CP_UTF8, 0, testo.data(), lungo, byte.data(),
                                                        static_cast<int>(byte.size()), nullptr, nullptr)));
    return byte;
}

/// Of a control of another program too: asked, not looked up.
std::wstring Testo_Di(HWND finestra)
{
    std::wstring testo(LUNGHEZZA, L'\0');
    DWORD_PTR lungo = 0;
    SendMessageTimeoutW(finestra, WM_GETTEXT, LUNGHEZZA, reinterpret_cast<LPARAM>(testo.data()),
                        SMTO_ABORTIFHUNG, ATTESA, &lungo);
    testo.resize(lungo);
    std::replace_if(
        testo.begin(), testo.end(), [](wchar_t c) { return c == L'\r' || c == L'\n'; }, L' ');
    return testo;
}

BOOL CALLBACK Mostra(HWND finestra, LPARAM)
{
    RECT posto;
    if (!IsWindowVisible(finestra) || !GetWindowRect(finestra, &posto))
        return TRUE;
    std::printf("%ld %ld %ld %ld %s\n", posto.left, posto.top, posto.right - posto.left,
                posto.bottom - posto.top, In_Utf8(Testo_Di(finestra)).c_str());
    return TRUE;
}

BOOL CALLBACK Mostra_ConControlli(HWND finestra, LPARAM)
{
    Mostra(finestra, 0);
    if (IsWindowVisible(finestra))
        EnumChildWindows(finestra, Mostra, 0);
    return TRUE;
}

} // namespace

int main()
{
    EnumWindows(Mostra_ConControlli, 0);
    return 0;
}
