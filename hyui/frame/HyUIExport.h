// Export macro of HyUI.dll. Platform-free: names no Windows header.
#pragma once

#if defined(_WIN32)
#ifdef HYUI_BUILD
#define HYUI_API __declspec(dllexport)
#else
#define HYUI_API __declspec(dllimport)
#endif
#else
#define HYUI_API
#endif
