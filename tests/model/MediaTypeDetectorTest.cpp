#include "model/MediaTypeDetector.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace lumeo {
namespace {

using testing::StartsWith;

/// "photo public.jpeg", or "-" when the file is not supported.
std::string detected(const std::string& name) {
    const auto detection = MediaTypeDetector::detectType(FilePath("/card/" + name));
    return detection ? std::string(rawValue(detection->mediaType)) + " " + detection->utType.str() : "-";
}

TEST(MediaTypeDetector, KnowsEveryFormatThatCamerasAndPhonesWrite) {
    const std::vector<std::pair<MediaType, std::vector<std::string>>> families = {
        {MediaType::rawPhoto,
         {"dng", "cr2", "cr3", "nef", "arw", "raf", "rw2", "orf", "pef", "sr2", "srf", "x3f", "nrw",
          "kdc", "mrw", "erf", "mef", "mos", "crw", "gpr", "3fr", "iiq", "rwl", "srw", "dcr", "fff"}},
        {MediaType::photo,
         {"jpg", "jpeg", "png", "heic", "heif", "tiff", "tif", "bmp", "gif", "webp", "avif", "ico", "jp2",
          "j2k", "jpf", "hif", "psd", "jxl", "insp"}},
        {MediaType::video,
         {"mov", "mp4", "m4v",  "avi", "mkv", "3gp", "3g2", "mts", "m2ts", "ts",  "wmv", "flv",   "webm",
          "dv",  "mpg", "mpeg", "mod", "tod", "vob", "ogv", "ogm", "insv", "lrv", "360", "dvr-ms"}},
    };
    for (const auto& [mediaType, extensions] : families) {
        for (const std::string& extension : extensions) {
            EXPECT_THAT(detected("a." + extension), StartsWith(std::string(rawValue(mediaType)) + " "));
        }
    }
}

TEST(MediaTypeDetector, GivesTheSpecificIdentifierWhateverTheCaseAndLeavesTheRestAlone) {
    EXPECT_EQ(detected("a.tar.HeIc"), "photo public.heic");
    EXPECT_EQ(detected("a.DNG"), "rawPhoto com.adobe.raw-image");
    EXPECT_EQ(detected("a.x3f"), "rawPhoto public.camera-raw-image");
    EXPECT_EQ(detected("00001.MTS"), "video public.avchd-mpeg-2-transport-stream");
    for (const std::string name :
         {"a.pdf", "a.txt", "jpg", ".jpg", "a.jpg.", "a.jp", "a.jpgx", "a.heicsx", "a.jpg ", "a.zip", "a.xmp",
          "a.aae", "a.\xFF\xFE", "README", "a.partial"}) {
        EXPECT_EQ(detected(name), "-") << name;
    }
    EXPECT_EQ(detected(std::string("a.jp\0", 5)), "-");
    EXPECT_EQ(detected("a." + std::string(250, 'j')), "-");
}

} // namespace
} // namespace lumeo
