#include "win32/framework/module.h"

#include "platform/windows/wide.h"

namespace multirename {

namespace {

constexpr WORD manifest_id = 2;

UniqueActivationContext make_context() noexcept
{
    ACTCTXW request = {};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.lpResourceName = MAKEINTRESOURCEW(manifest_id);
    request.hModule = module_instance();
    return UniqueActivationContext(CreateActCtxW(&request));
}

} // namespace

HINSTANCE module_instance() noexcept
{
    HMODULE module = nullptr;
    static const char address_in_module = 0;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&address_in_module), &module);
    return module;
}

ModuleStateGuard::ModuleStateGuard() noexcept : context_(make_context())
{
    active_ = context_ && ActivateActCtx(context_.get(), &cookie_) != FALSE;
    INITCOMMONCONTROLSEX controls = {};
    controls.dwSize = sizeof controls;
    controls.dwICC = ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_WIN95_CLASSES;
    InitCommonControlsEx(&controls);
}

ModuleStateGuard::~ModuleStateGuard()
{
    if (active_)
        DeactivateActCtx(0, cookie_);
}

std::u16string load_text(UINT id)
{
    // With no room for a copy the call gives the place of the text in the resource; it does not end in NUL there.
    const wchar_t* text = nullptr;
    const int length = LoadStringW(module_instance(), id, reinterpret_cast<LPWSTR>(&text), 0);
    return from_wide({text, length > 0 ? static_cast<std::size_t>(length) : 0});
}

UniqueIcon load_icon(WORD id, SIZE size) noexcept
{
    return UniqueIcon(static_cast<HICON>(LoadImageW(module_instance(), MAKEINTRESOURCEW(id), IMAGE_ICON,
                                                    static_cast<int>(size.cx), static_cast<int>(size.cy), 0)));
}

UniqueImageList load_images(WORD first, WORD last, SIZE size) noexcept
{
    UniqueImageList images(
        ImageList_Create(static_cast<int>(size.cx), static_cast<int>(size.cy), ILC_COLOR32, last - first + 1, 0));
    if (!images)
        return images;
    for (int id = first; id <= last; ++id) {
        const UniqueGdiObject bitmap(
            LoadImageW(module_instance(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
        if (bitmap)
            ImageList_Add(images.get(), static_cast<HBITMAP>(bitmap.get()), nullptr);
    }
    return images;
}

} // namespace multirename
