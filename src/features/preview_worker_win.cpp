#include "features/preview_worker_win.h"

#include <shellapi.h>
#include <shobjidl.h>
#include <wincodec.h>

#include <string>

#include "core/path_text.h"
#include "features/folder_size_worker_win.h"
#include "win/com_ptr_win.h"

namespace tessel {
namespace {

// Stops a folder walk as soon as a newer request came.
class StaleWalk : public IWalkControl {
public:
    StaleWalk(const LatestRequest<PreviewRequest>& slot, uint64_t number) : slot_(slot), number_(number) {}
    bool Cancelled() override { return !slot_.IsCurrent(number_); }
    bool Paused() override { return false; }
    void Sleep(unsigned milliseconds) override { ::Sleep(milliseconds); }

private:
    const LatestRequest<PreviewRequest>& slot_;
    uint64_t number_;
};

// Premultiplied pixels laid over the background, so that the pane can copy them as they are.
void OverBackground(BYTE* pixels, size_t count, COLORREF background) {
    const int back[3] = {GetBValue(background), GetGValue(background), GetRValue(background)};
    for (size_t i = 0; i < count; ++i, pixels += 4) {
        const int cover = 255 - pixels[3];
        for (int c = 0; c < 3; ++c) pixels[c] = static_cast<BYTE>(pixels[c] + back[c] * cover / 255);
        pixels[3] = 255;
    }
}

win::UniqueBitmap TopDownBitmap(int width, int height, void** bits) {
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB};
    return win::UniqueBitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, bits, nullptr, 0));
}

// Decodes the first frame with the system's imaging component, scaled to fit the box.
bool DecodePicture(const PreviewRequest& request, PreviewResult& result) {
    win::ComPtr<IWICImagingFactory> factory;
    win::ComPtr<IWICBitmapDecoder> decoder;
    win::ComPtr<IWICBitmapFrameDecode> frame;
    UINT width = 0, height = 0;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                factory.put_void())) ||
        FAILED(factory->CreateDecoderFromFilename(request.path.c_str(), nullptr, GENERIC_READ,
                                                  WICDecodeMetadataCacheOnDemand, decoder.put())) ||
        FAILED(decoder->GetFrame(0, frame.put())) || FAILED(frame->GetSize(&width, &height)))
        return false;
    const PictureSize shown = FitPicture({static_cast<int>(width), static_cast<int>(height)},
                                         {static_cast<int>(request.box.cx), static_cast<int>(request.box.cy)});
    if (shown.width <= 0) return false;
    win::ComPtr<IWICBitmapScaler> scaler;
    win::ComPtr<IWICFormatConverter> converter;
    if (FAILED(factory->CreateBitmapScaler(scaler.put())) ||
        FAILED(scaler->Initialize(frame.get(), shown.width, shown.height, WICBitmapInterpolationModeFant)) ||
        FAILED(factory->CreateFormatConverter(converter.put())) ||
        FAILED(converter->Initialize(scaler.get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom)))
        return false;
    void* bits = nullptr;
    win::UniqueBitmap bitmap = TopDownBitmap(shown.width, shown.height, &bits);
    const UINT stride = static_cast<UINT>(shown.width) * 4;
    if (!bitmap || FAILED(converter->CopyPixels(nullptr, stride, stride * static_cast<UINT>(shown.height),
                                                static_cast<BYTE*>(bits))))
        return false;
    OverBackground(static_cast<BYTE*>(bits), static_cast<size_t>(shown.width) * shown.height, request.background);
    result.picture = std::move(bitmap);
    result.pictureSize = {static_cast<LONG>(width), static_cast<LONG>(height)};
    return true;
}

// The shell's thumbnail, which also covers kinds the imaging component does not read (videos,
// documents) where the system has a handler for them.
bool ShellThumbnail(const PreviewRequest& request, PreviewResult& result) {
    win::ComPtr<IShellItemImageFactory> images;
    if (!request.item || FAILED(SHCreateItemFromIDList(request.item.get(), IID_IShellItemImageFactory, images.put_void())))
        return false;
    HBITMAP bitmap = nullptr;
    if (FAILED(images->GetImage(request.box, SIIGBF_THUMBNAILONLY | SIIGBF_BIGGERSIZEOK, &bitmap)) || !bitmap) return false;
    result.picture.reset(bitmap);
    BITMAP facts{};
    GetObjectW(bitmap, sizeof(facts), &facts);
    result.pictureSize = {facts.bmWidth, facts.bmHeight};
    return true;
}

void ReadFacts(const PreviewRequest& request, PreviewResult& result) {
    SHFILEINFOW info{};
    if (request.item && SHGetFileInfoW(reinterpret_cast<LPCWSTR>(request.item.get()), 0, &info, sizeof(info),
                                       SHGFI_PIDL | SHGFI_ICON | SHGFI_LARGEICON | SHGFI_TYPENAME)) {
        result.icon.reset(info.hIcon);
        result.typeName = info.szTypeName;
    }
    if (request.path.empty()) return;
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(LongPathForm(request.path).c_str(), GetFileExInfoStandard, &data)) {
        result.found = false;
        return;
    }
    result.size = (static_cast<uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    result.written = data.ftLastWriteTime;
}

// The first 64 KB, shared with writers and deleters so that the preview never stands in the way.
bool ReadHead(const std::wstring& path, std::string& bytes) {
    win::UniqueHandle file(CreateFileW(LongPathForm(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) return false;
    bytes.resize(kTextPreviewBytes);
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) return false;
    bytes.resize(read);
    return true;
}

}  // namespace

PreviewWorker::PreviewWorker(HWND window, UINT message)
    : shared_(std::make_shared<Shared>(window, message)) {
    thread_.Start([shared = shared_](std::stop_token) { Work(*shared); }, [shared = shared_] { shared->slot.Stop(); });
}

PreviewWorker::~PreviewWorker() { thread_.Stop(); }  // a read stuck in a slow drive is left behind

void PreviewWorker::Work(Shared& shared) {
    const HRESULT com = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    PreviewRequest request;
    uint64_t number = 0;
    while (shared.slot.Take(request, number)) Serve(shared, request, number);
    if (SUCCEEDED(com)) CoUninitialize();
}

void PreviewWorker::Post(Shared& shared, std::unique_ptr<PreviewResult> result) {
    if (!shared.slot.IsCurrent(result->number)) return;  // a newer request will answer
    if (PostMessageW(shared.window, shared.message, 0, reinterpret_cast<LPARAM>(result.get()))) result.release();
}

void PreviewWorker::Serve(Shared& shared, const PreviewRequest& request, uint64_t number) {
    auto result = std::make_unique<PreviewResult>();
    result->number = number;
    result->name = request.name;
    result->kind = PreviewKindOf(request.path.empty() ? request.name : request.path, request.folder);
    ReadFacts(request, *result);
    if (request.path.empty() || !result->found) {
        if (result->kind != PreviewKind::kFolder) result->kind = PreviewKind::kOther;
        Post(shared, std::move(result));
        return;
    }
    switch (result->kind) {
    case PreviewKind::kFolder: {
        StaleWalk walk(shared.slot, number);
        const std::wstring folder = request.path;
        if (!MeasureFolder(FileSystemLister(), folder, false, walk, result->inside)) return;
        auto counted = std::make_unique<PreviewResult>();
        counted->number = number;
        Post(shared, std::move(result));  // the folder's own entries at once; the depth follows
        if (!MeasureFolder(FileSystemLister(), folder, true, walk, counted->all)) return;
        counted->kind = PreviewKind::kFolder;
        counted->measured = true;
        Post(shared, std::move(counted));
        return;
    }
    case PreviewKind::kPicture: {
        const bool shown = result->size <= kLargestPreviewPicture &&
                           ((request.shellThumbnails && ShellThumbnail(request, *result)) || DecodePicture(request, *result));
        if (!shown) {
            result->kind = PreviewKind::kOther;
            result->unreadable = true;
        }
        break;
    }
    case PreviewKind::kText:
    case PreviewKind::kOther: {
        std::string head;
        if (!ReadHead(request.path, head)) {
            result->found = false;
            result->kind = PreviewKind::kOther;
            break;
        }
        if (result->kind == PreviewKind::kOther && !(head.size() > 0 && LooksLikeText(head))) {
            if (request.shellThumbnails && ShellThumbnail(request, *result)) result->kind = PreviewKind::kPicture;
            break;
        }
        result->kind = PreviewKind::kText;
        result->textCut = result->size > head.size();
        result->text = DecodePreviewText(head, result->textCut);
        break;
    }
    }
    Post(shared, std::move(result));
}

}  // namespace tessel
