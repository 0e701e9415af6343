/* Multi Rename, for programs that let their users rename many files at once. C and C++. */
#ifndef MULTIRENAME_H
#define MULTIRENAME_H

#include <windows.h>

#ifdef MULTIRENAME_MODULE
#define MULTIRENAME_API __declspec(dllexport)
#else
#define MULTIRENAME_API __declspec(dllimport)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Shows the "Multi Rename" dialog for the given files and folders and returns when it has been closed. Whatever the
 * user had renamed is renamed by then. Call it on the thread that owns `parent`, or, without one, on any thread that
 * may show windows.
 *
 * parent  the window that the dialog belongs to and that takes no input meanwhile; may be null.
 * count   how many paths there are; 0 or less stands for none, and the dialog opens with an empty list.
 * paths   full paths with backslashes and with none at the end, each ended by a zero. They are copied before the dialog
 *         opens. Paths of 260 characters or more and paths that do not exist are left out silently. May be null, and so
 *         may each path: none is meant then.
 * flag    kept for the host, 0 or 1; changes nothing.
 * text    kept for the host; null is the same as "". Changes nothing.
 *
 * There is no result and no error: what cannot be renamed the user is told in the dialog. No exception ever leaves the
 * function, so hosts in any language may call it. When memory or window handles run out, the run ends: the dialog is
 * closed, everything that belonged to it is released, nothing more is renamed, and the call returns as if the user had
 * cancelled. */
MULTIRENAME_API void WINAPI run_multirename(HWND parent, INT32 count, const wchar_t* const* paths, unsigned char flag,
                                            const wchar_t* text);

#ifdef __cplusplus
}
#endif

#endif
