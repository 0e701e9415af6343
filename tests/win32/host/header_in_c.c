/* Hosts may be written in C, and some are linked with the module: the header and the import library must do for them.
 * This one ends well when the system has found the module and its function; a dialog is for the other tests. */
#include "multirename.h"

typedef void(WINAPI* rename_call)(HWND, INT32, const wchar_t* const*, unsigned char, const wchar_t*);

int main(void)
{
    const rename_call call_from_c = &run_multirename;
    return call_from_c == NULL;
}
