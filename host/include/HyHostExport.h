// Export macro of HyHost.dll, the default host services.
#pragma once
#ifdef HYHOST_BUILD
#define HYHOST_API __declspec(dllexport)
#else
#define HYHOST_API __declspec(dllimport)
#endif
