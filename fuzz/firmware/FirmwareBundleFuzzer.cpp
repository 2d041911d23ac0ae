// fuzz_firmware_bundle: arbitrary bytes as a firmware bundle, read as the application reads a
// file: the archive, then "bundle.json", then every image. Besides crashes, leaks and undefined
// behaviour it checks what a bundle that passes promises: at least one image and at most
// kMaxImages, none empty or larger than kMaxImageSize, and each found again by its device.

#include "fuzz/FuzzCheck.h"

#include "QtApps/Common/Model/FirmwareUpdate/FirmwareBundle.h"
#include "QtApps/Common/Model/FirmwareUpdate/MiniZipReader.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using firmwareUpdate::FirmwareBundle;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    common::MiniZipReader reader;
    QString error;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!reader.openBytes(bytes, error)) {
        FUZZ_CHECK(!error.isEmpty());
        return 0;
    }
    const std::optional<FirmwareBundle> bundle = FirmwareBundle::readOpen(reader, error);
    if (!bundle) {
        FUZZ_CHECK(!error.isEmpty());
        return 0;
    }
    FUZZ_CHECK(!bundle->images().isEmpty());
    FUZZ_CHECK(bundle->images().size() <= FirmwareBundle::kMaxImages);
    for (const FirmwareBundle::ImageType& image : bundle->images()) {
        FUZZ_CHECK(!image.data.isEmpty());
        FUZZ_CHECK(image.data.size() <= FirmwareBundle::kMaxImageSize);
        const QList<FirmwareBundle::ImageType> matching = bundle->imagesFor(image.device);
        FUZZ_CHECK(std::any_of(
            matching.begin(), matching.end(), [&image](const FirmwareBundle::ImageType& candidate) {
                return candidate.bank == image.bank && candidate.filename == image.filename;
            }));
    }
    return 0;
}
