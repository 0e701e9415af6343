/* Hosts may be written in C: the header must do there too. */
#include "multirename.h"

typedef void(WINAPI* rename_call)(HWND, INT32, const wchar_t* const*, unsigned char, const wchar_t*);

extern const rename_call call_from_c;
const rename_call call_from_c = &run_multirename;
