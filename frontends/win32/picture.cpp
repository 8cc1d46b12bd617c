#include "frontends/win32/picture.h"

#include <wincodec.h>

#include "frontends/com/com_ptr.h"
#include "frontends/com/text.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

void require(HRESULT result, const std::string& path) {
  if (FAILED(result)) throw Error(ErrorNumber::PathAccess, "The picture " + path + " cannot be written");
}

// A copy of the window's pixels.
class Shot {
 public:
  explicit Shot(HWND window) : screen_(GetWindowDC(window)), memory_(CreateCompatibleDC(screen_)) {
    RECT box{};
    GetWindowRect(window, &box);
    const int width = box.right - box.left, height = box.bottom - box.top;
    bitmap_ = CreateCompatibleBitmap(screen_, width, height);
    const HGDIOBJ before = SelectObject(memory_, bitmap_);
    BitBlt(memory_, 0, 0, width, height, screen_, 0, 0, SRCCOPY);
    SelectObject(memory_, before);
    ReleaseDC(window, screen_);
  }
  Shot(const Shot&) = delete;
  Shot& operator=(const Shot&) = delete;
  ~Shot() {
    DeleteDC(memory_);
    DeleteObject(bitmap_);
  }
  HBITMAP bitmap() const noexcept { return bitmap_; }

 private:
  HDC screen_, memory_;
  HBITMAP bitmap_;
};

}  // namespace

void savePicture(HWND window, const std::string& path) {
  RedrawWindow(window, nullptr, nullptr,
               RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  const Shot shot(window);
  ComPtr<IWICImagingFactory> factory;
  require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IWICImagingFactory), factory.putVoid()),
          path);
  ComPtr<IWICBitmap> pixels;
  require(factory->CreateBitmapFromHBITMAP(shot.bitmap(), nullptr, WICBitmapIgnoreAlpha, pixels.put()), path);
  ComPtr<IWICStream> file;
  require(factory->CreateStream(file.put()), path);
  require(file->InitializeFromFilename(wide(path).c_str(), GENERIC_WRITE), path);
  ComPtr<IWICBitmapEncoder> encoder;
  require(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.put()), path);
  require(encoder->Initialize(file.get(), WICBitmapEncoderNoCache), path);
  ComPtr<IWICBitmapFrameEncode> frame;
  require(encoder->CreateNewFrame(frame.put(), nullptr), path);
  require(frame->Initialize(nullptr), path);
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  require(frame->SetPixelFormat(&format), path);
  require(frame->WriteSource(pixels.get(), nullptr), path);
  require(frame->Commit(), path);
  require(encoder->Commit(), path);
}

}  // namespace vmgv
