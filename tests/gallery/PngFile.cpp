#include "tests/gallery/PngFile.h"

#include <comdef.h>
#include <memory>
#include <stdexcept>
#include <type_traits>
#include <wincodec.h>

namespace ts::gallery
{
namespace
{

template <typename Interface>
using Pointer = _com_ptr_t<_com_IIID<Interface, &__uuidof(Interface)>>;

void Require(bool condition, const char* what)
{
    if (!condition)
    {
        throw std::runtime_error(what);
    }
}

void Require(HRESULT result, const char* what)
{
    Require(SUCCEEDED(result), what);
}

struct BitmapDeleter
{
    void operator()(HBITMAP bitmap) const noexcept { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

/// A copy of the pixels of a window.
Bitmap Capture(HWND window)
{
    RECT rect;
    GetWindowRect(window, &rect);
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const HDC source = GetWindowDC(window);
    const HDC target = CreateCompatibleDC(source);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof info.bmiHeader, width, -height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    void* pixels = nullptr;
    Bitmap bitmap(CreateDIBSection(target, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    const HGDIOBJ former = SelectObject(target, bitmap.get());
    BitBlt(target, 0, 0, width, height, source, 0, 0, SRCCOPY);
    SelectObject(target, former);
    DeleteDC(target);
    ReleaseDC(window, source);
    Require(bitmap != nullptr, "no bitmap");
    return bitmap;
}

void Encode(IWICImagingFactory& factory, IWICBitmapSource& picture, const std::wstring& path)
{
    Pointer<IWICStream> stream;
    Require(factory.CreateStream(&stream), "no stream");
    Require(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE), "the file cannot be written");
    Pointer<IWICBitmapEncoder> encoder;
    Require(factory.CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder), "no encoder");
    Require(encoder->Initialize(stream, WICBitmapEncoderNoCache), "no encoder");
    Pointer<IWICBitmapFrameEncode> frame;
    Require(encoder->CreateNewFrame(&frame, nullptr), "no frame");
    Require(frame->Initialize(nullptr), "no frame");
    Require(frame->WriteSource(&picture, nullptr), "the picture cannot be written");
    Require(frame->Commit(), "the picture cannot be written");
    Require(encoder->Commit(), "the picture cannot be written");
}

} // namespace

void SavePicture(HWND window, const std::wstring& path)
{
    const Bitmap bitmap = Capture(window);
    Pointer<IWICImagingFactory> factory;
    Require(factory.CreateInstance(CLSID_WICImagingFactory), "no imaging");
    Pointer<IWICBitmap> picture;
    Require(factory->CreateBitmapFromHBITMAP(bitmap.get(), nullptr, WICBitmapIgnoreAlpha, &picture),
            "no picture");
    Encode(*factory.GetInterfacePtr(), *picture.GetInterfacePtr(), path);
}

} // namespace ts::gallery
