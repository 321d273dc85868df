#include "media/photo/PhotoReader.h"

#include "media/FileWindow.h"
#include "platform/DateText.h"
#include "samples/AttackFiles.h"
#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"
#include "support/Damage.h"
#include "support/MemoryFileSystem.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace lumeo {
namespace {

using namespace std::string_literals;
using ::testing::Eq;
using ::testing::Optional;

std::optional<PhotoProperties> readBytes(std::string_view content) {
    MemoryFileSystem files;
    const FilePath path("/photos/any name");
    files.addFile(path, content);
    return PhotoReader::read(files, path);
}

/// The properties of a file that must be recognised.
PhotoProperties propertiesOf(std::string_view content) {
    auto properties = readBytes(content);
    EXPECT_TRUE(properties.has_value());
    return properties.value_or(PhotoProperties{});
}

TinyPhoto wholePhoto() {
    TinyPhoto photo;
    photo.width = 40;
    photo.height = 30;
    photo.dateTimeOriginal = "2021:03:14 15:30:45";
    photo.dateTimeDigitized = "2021:03:14 15:30:46";
    photo.dateTime = "2021:03:15 08:00:00";
    photo.make = "Maker";
    photo.model = "Model 1";
    photo.lensModel = "Lens 50mm";
    photo.latitude = -48.5;
    photo.longitude = 2.25;
    photo.pixelXDimension = 4032;
    photo.pixelYDimension = 3024;
    return photo;
}

std::optional<Instant> date(std::string_view text) {
    return DateText::parsePhoto(text);
}

void expectWholePhoto(const PhotoProperties& properties) {
    EXPECT_EQ(properties.exif, (PhotoProperties::Exif{date("2021:03:14 15:30:45"),
                                                      date("2021:03:14 15:30:46"), "Lens 50mm", 4032, 3024}));
    EXPECT_EQ(properties.tiff, (PhotoProperties::Tiff{date("2021:03:15 08:00:00"), "Maker", "Model 1"}));
    EXPECT_EQ(properties.gps, (PhotoProperties::Gps{48.5, "S", 2.25, "E"}));
}

constexpr auto big = bigEndianBytes;
constexpr auto little = littleEndianBytes;
constexpr auto box = movieBox;

std::string jpegWithExif(const std::string& tiff) {
    return "\xFF\xD8\xFF\xE1" + big(tiff.size() + 8, 2) + "Exif\0\0"s + tiff + "\xFF\xD9";
}

/// Reading must survive all damage, wherever the file ends.
void expectBearsDamage(const std::string& whole) {
    damageEverywhere(whole, std::string_view("\0\xFF", 2),
                     [](const std::string& damaged) { readBytes(damaged); });
}

/// The number of bytes that are read to get a file's properties.
std::size_t bytesReadOf(std::string_view content, PhotoProperties& properties) {
    MemoryFileSystem files;
    files.addFile(FilePath("/a"), content);
    properties = PhotoReader::read(files, FilePath("/a")).value_or(PhotoProperties{});
    return files.bytesRead();
}

TEST(PhotoReaderTest, readsEveryFactOfJpegAndTiff) {
    const PhotoProperties jpeg = propertiesOf(tinyJpeg(wholePhoto()));
    expectWholePhoto(jpeg);
    EXPECT_THAT(jpeg.pixelWidth, Optional(40));
    EXPECT_THAT(jpeg.pixelHeight, Optional(30));

    EXPECT_EQ(propertiesOf(tinyTiff(wholePhoto())), jpeg);

    EXPECT_EQ(propertiesOf(tinyJpeg()).exif, PhotoProperties::Exif{});
}

TEST(PhotoReaderTest, readsBigEndianBlocksAndTakesAValueOfAnotherTypeForAbsent) {
    const TiffMaker tiff(false);
    TiffMaker::Entry signedOffset = tiff.number32(0x8769, 200);
    signedOffset.type = 9;
    TiffMaker::Entry dateAsBytes = tiff.text(0x0132, "2021:03:14 15:30:45");
    dateAsBytes.type = 1;
    const TiffMaker::Entry lensBehindTheEnd{0xA434, 2, 5'000, tiff.u32(0) + "     "};
    // Some phones put a sign where the reference already gives it.
    const TiffMaker::Entry signedDegrees{2, 10, 1, tiff.u32(0xFFFFFFD0) + tiff.u32(1)};
    const TiffMaker::Entry noDegrees{4, 5, 3, tiff.u32(48) + tiff.u32(0) + std::string(16, '\1')};
    std::string block =
        tiff.header() + tiff.directory({tiff.text(0x010F, "Ma\0ker"s), tiff.text(0x0110, "M1"), signedOffset,
                                        dateAsBytes, tiff.number32(0x8825, 300)},
                                       8);
    block.resize(200);
    block += tiff.directory({tiff.number16(0xA002, 4032), lensBehindTheEnd}, 200);
    block.resize(300);
    block += tiff.directory({signedDegrees, tiff.text(1, "S"), noDegrees}, 300);
    const PhotoProperties properties = propertiesOf(jpegWithExif(block));
    EXPECT_EQ(properties.gps, (PhotoProperties::Gps{48.0, "S", {}, {}}));
    EXPECT_EQ(properties.tiff, (PhotoProperties::Tiff{{}, "Ma", "M1"})); // M1 fits into the entry itself
    EXPECT_EQ(properties.exif, (PhotoProperties::Exif{{}, {}, {}, 4032, {}}));
}

TEST(PhotoReaderTest, xmpFillsOnlyWhatExifLacks) {
    TinyPhoto photo;
    photo.dateTimeOriginal = "2021:03:14 15:30:45";
    photo.make = "Maker";
    photo.xmpPacket =
        tinyXmp(R"(exif:DateTimeOriginal="1999-01-01T00:00:00" tiff:Make="Other" tiff:Model="XModel")");
    for (const std::string& content : {tinyJpeg(photo), tinyTiff(photo)}) {
        const PhotoProperties properties = propertiesOf(content);
        EXPECT_EQ(properties.exif.dateTimeOriginal, date("2021:03:14 15:30:45"));
        EXPECT_THAT(properties.tiff.make, Optional(Eq("Maker")));
        EXPECT_THAT(properties.tiff.model, Optional(Eq("XModel")));
    }
}

TEST(PhotoReaderTest, noFileIsLookedAtForEver) {
    MemoryFileSystem files;
    files.addFile(FilePath("/a"), "ab");
    const auto file = files.openForReading(FilePath("/a"));
    FileWindow window(**file);
    int views = 0;
    while (window.view(1, 1)) {
        ++views;
    }
    EXPECT_GT(views, 100'000);
    EXPECT_LT(views, 1'000'000);
}

TEST(PhotoReaderTest, givesTheSizeOfARawFilesMainImage) {
    const TiffMaker tiff;
    const auto image = [&](std::uint32_t reduced, std::uint32_t width, std::size_t at) {
        return tiff.directory(
            {tiff.number32(0x00FE, reduced), tiff.number32(0x0100, width), tiff.number32(0x0101, width / 2)},
            at);
    };
    const TiffMaker::Entry subdirectories{0x014A, 4, 2, tiff.u32(200) + tiff.u32(300)};
    std::string file = tiff.header() + tiff.directory({tiff.number32(0x00FE, 1), tiff.number32(0x0100, 160),
                                                       tiff.number32(0x0101, 120), subdirectories},
                                                      8);
    file.resize(200);
    file += image(1, 8'000, 200);
    file.resize(300);
    file += image(0, 6'000, 300);
    EXPECT_THAT(propertiesOf(file).pixelWidth, Optional(6'000));
}

TEST(PhotoReaderTest, readsOnlyAFewPagesOfALargeFileAndLittleOfOneThatLeadsAbout) {
    TinyPhoto photo = wholePhoto();
    photo.makerNote = std::string(50'000, 'x');
    for (std::string content : {tinyJpeg(photo), tinyTiff(wholePhoto())}) {
        content.resize(5'000'000);
        PhotoProperties properties;
        EXPECT_LT(bytesReadOf(content, properties), 40'000U);
        expectWholePhoto(properties);
    }

    const TiffMaker tiff;
    // Every directory claims 65,535 entries, and its subdirectories are the directory itself.
    const std::string loop = tiff.u16(0x014A) + tiff.u16(4) + tiff.u32(1'000'000) + tiff.u32(8);
    std::string leadingAbout = tiff.header() + tiff.u16(0xFFFF);
    for (int i = 0; i < 300'000; ++i) {
        leadingAbout += loop;
    }
    PhotoProperties properties;
    EXPECT_LT(bytesReadOf(leadingAbout, properties), 1'000'000U);
}

TEST(PhotoReaderTest, bearsFilesCutAndDamagedAnywhere) {
    TinyPhoto photo = wholePhoto();
    photo.width = photo.height = 8;
    const std::string jpeg = tinyJpeg(photo);
    expectBearsDamage(jpeg);
    expectBearsDamage(tinyTiff(photo));
    photo.xmpPacket = tinyXmp("");
    expectBearsDamage(tinyPsd(photoshopResource(0x0422, tinyExif(photo)) + pressFacts("20210314", "153045")));
    expectBearsDamage(tinyGif(*photo.xmpPacket, 1));
    expectBearsDamage(box("JXL ", "\r\n\x87\n") + box("Exif", big(0, 4) + tinyExif(photo)));
    const std::size_t frame = jpeg.find("\xFF\xC0");
    const PhotoProperties cut = propertiesOf(jpeg.substr(0, frame));
    expectWholePhoto(cut);
    EXPECT_FALSE(cut.pixelWidth);
}

TEST(PhotoReaderTest, knowsWhatIsNoImage) {
    EXPECT_FALSE(readBytes(""));
    EXPECT_FALSE(readBytes("This is a text and no photo at all, whatever its name says."));
    EXPECT_FALSE(readBytes(big(24, 4) + "ftypisom" + big(0, 4) + "isommp42" + big(8, 4) + "moov"));
    MemoryFileSystem files;
    EXPECT_FALSE(PhotoReader::read(files, FilePath("/absent.jpg")));
}

TEST(PhotoReaderTest, readsSizesFromHeaders) {
    const std::string bmp = "BM" + std::string(12, '\0') + little(40, 4) + little(300, 4);
    const auto webp = [](const std::string& chunk) { return "RIFF" + little(100, 4) + "WEBP" + chunk; };
    const std::vector<std::string> images{
        "GIF89a" + little(300, 2) + little(200, 2),
        bmp + little(200, 4),
        bmp + little(0xFFFFFF38, 4), // rows from top to bottom
        "\xFF\x4F\xFF\x51" + big(41, 2) + big(0, 2) + big(310, 4) + big(205, 4) + big(10, 4) + big(5, 4),
        "\x89PNG\r\n\x1A\n" + big(13, 4) + "IHDR" + big(300, 4) + big(200, 4), // damaged after its header
        webp("VP8X" + little(10, 4) + little(0, 4) + little(299, 3) + little(199, 3)),
        webp("VP8L" + little(10, 4) + "\x2F" + little(299 | 199 << 14, 4) + little(0, 5)),
        webp("VP8 " + little(10, 4) + little(0, 3) + "\x9D\x01\x2A" + little(300, 2) + little(200, 2))};
    for (const std::string& image : images) {
        const PhotoProperties properties = propertiesOf(image);
        EXPECT_THAT(properties.pixelWidth, Optional(300)) << image;
        EXPECT_THAT(properties.pixelHeight, Optional(200)) << image;
    }
    EXPECT_THAT(propertiesOf("\0\0\1\0\2\0\x20\0"s).pixelHeight, Optional(256)) << "an icon's 0 is 256";
}

std::string fullBox(const std::string& type, const std::string& content, int version = 0) {
    return box(type, std::string{static_cast<char>(version), 0, 0, 0} + content);
}

/// A photo of two items, tile and grid. The grid is the primary one. Its Exif is in the media data, and its
/// XMP is outside the boxes.
std::string heic(const TinyPhoto& photo) {
    const std::string tiff = tinyExif(photo);
    const std::string exifItem = big(6, 4) + "Exif\0\0"s + tiff;
    const std::string xmp = photo.xmpPacket.value_or("");
    const auto info = [](int id, const std::string& type, const std::string& more) {
        return fullBox("infe", big(static_cast<std::uint64_t>(id), 2) + big(0, 2) + type + more, 2);
    };
    const auto extent = [](int id, int method, std::size_t offset, std::size_t length) {
        return big(static_cast<std::uint64_t>(id), 2) + big(static_cast<std::uint64_t>(method), 2) +
               big(0, 2) + big(1, 2) + big(offset, 4) + big(length, 4);
    };
    const auto size = [](std::uint64_t width, std::uint64_t height) {
        return fullBox("ispe", big(width, 4) + big(height, 4));
    };
    const auto file = [&](std::size_t exifAt) {
        const std::string properties =
            box("iprp", box("ipco", size(512, 512) + size(4032, 3024)) +
                            fullBox("ipma", big(2, 4) + big(1, 2) + "\1\x81" + big(2, 2) + "\1\x82"));
        return box("ftyp", "heic" + big(0, 4) + "mif1heic") +
               fullBox("meta", fullBox("pitm", big(2, 2)) +
                                   fullBox("iinf", big(4, 2) + info(1, "hvc1", "\0"s) +
                                                       info(2, "grid", "\0"s) + info(3, "Exif", "\0"s) +
                                                       info(4, "mime", "\0application/rdf+xml\0"s)) +
                                   properties +
                                   fullBox("iloc",
                                           "\x44\0"s + big(2, 2) + extent(3, 0, exifAt, exifItem.size()) +
                                               extent(4, 1, 0, xmp.size()),
                                           1) +
                                   box("idat", xmp)) +
               box("mdat", exifItem);
    };
    return file(file(0).size() - exifItem.size());
}

TEST(PhotoReaderTest, readsIsoMediaImages) {
    TinyPhoto photo = wholePhoto();
    photo.lensModel.reset();
    photo.xmpPacket = tinyXmp(R"(aux:Lens="Lens 50mm")");
    const std::string content = heic(photo);
    const PhotoProperties properties = propertiesOf(content);
    expectWholePhoto(properties);
    EXPECT_THAT(properties.pixelWidth, Optional(4032));
    EXPECT_THAT(properties.pixelHeight, Optional(3024));
    expectBearsDamage(content);
}

TEST(PhotoReaderTest, readsTheSeparateDirectoriesOfACr3) {
    const TiffMaker tiff;
    const std::string uuid = "\x85\xC0\xB6\x87\x82\x0F\x11\xE0\x81\x11\xF4\xCE\x46\x2B\x6A\x48";
    const std::string camera = tiff.header() + tiff.directory({tiff.text(0x010F, "Maker")}, 8);
    const std::string exif = tiff.header() + tiff.directory({tiff.text(0x9003, "2021:03:14 15:30:45")}, 8);
    const std::string gps = tiff.header() + tiff.directory({tiff.text(1, "N"), tiff.degrees(2, 48.5)}, 8);
    const PhotoProperties properties = propertiesOf(
        box("ftyp", "crx " + big(1, 4) + "crx isom") +
        box("moov", box("uuid", uuid + box("CMT1", camera) + box("CMT2", exif) + box("CMT4", gps))));
    EXPECT_THAT(properties.tiff.make, Optional(Eq("Maker")));
    EXPECT_EQ(properties.exif.dateTimeOriginal, date("2021:03:14 15:30:45"));
    EXPECT_THAT(properties.gps.latitude, Optional(48.5));
}

TEST(PhotoReaderTest, readsTheMetadataOfPreviews) {
    const std::string jpeg = tinyJpeg(wholePhoto());
    std::string raf = "FUJIFILMCCD-RAW ";
    raf.resize(84);
    raf += big(160, 4) + big(jpeg.size(), 4);
    raf.resize(160);
    const PhotoProperties ofRaf = propertiesOf(raf + jpeg);
    expectWholePhoto(ofRaf);
    EXPECT_FALSE(ofRaf.pixelWidth) << "the preview's size is not the photo's";

    TiffMaker::Entry preview{0x002E, 7, static_cast<std::uint32_t>(jpeg.size()), jpeg};
    std::string rw2 = TiffMaker().header() + TiffMaker().directory({preview}, 8);
    rw2[2] = '\x55';
    expectWholePhoto(propertiesOf(rw2));
}

TEST(PhotoReaderTest, readsThePropertiesOfX3f) {
    const std::vector<std::string> texts{"TIME", "1615735845", "CAMMANUF", "Maker", "CAMMODEL", "Model 1"};
    std::string characters;
    std::string offsets;
    for (const std::string& text : texts) {
        offsets += little(characters.size() / 2, 4);
        for (const char character : text + '\0') {
            characters += little(static_cast<unsigned char>(character), 2);
        }
    }
    const std::string properties = "SECp" + little(0x20000, 4) + little(texts.size() / 2, 4) + little(0, 8) +
                                   little(characters.size() / 2, 4) + offsets + characters;
    std::string file = "FOVb" + little(0x20002, 4);
    file.resize(28);
    file += little(2640, 4) + little(1760, 4) + little(0, 4);
    const std::size_t propertiesAt = file.size();
    file += properties;
    const std::size_t directoryAt = file.size();
    file += "SECd" + little(0x20000, 4) + little(1, 4) + little(propertiesAt, 4) +
            little(properties.size(), 4) + "PROP" + little(directoryAt, 4);
    const PhotoProperties read = propertiesOf(file);
    EXPECT_EQ(read.exif.dateTimeOriginal, date("2021:03:14 15:30:45"));
    EXPECT_EQ(read.tiff, (PhotoProperties::Tiff{{}, "Maker", "Model 1"}));
    EXPECT_THAT(read.pixelWidth, Optional(2640));
    EXPECT_THAT(read.pixelHeight, Optional(1760));
    expectBearsDamage(file);
}

TEST(PhotoReaderTest, readsTheHeapsOfACrw) {
    const std::string jpeg = tinyJpeg();
    const std::string file =
        crwFile(crwHeap({{0x2007, jpeg},
                         {0x300A, crwHeap({{0x2807, crwHeap({{0x080A, "Maker\0Model 1\0"s}})},
                                           {0x1810, little(3072, 4) + little(2048, 4)},
                                           {0x180E, little(1'615'735'845, 4) + little(0, 8)}})}}));
    const PhotoProperties read = propertiesOf(file);
    EXPECT_EQ(read.exif.dateTimeOriginal, date("2021:03:14 15:30:45"));
    EXPECT_EQ(read.tiff, (PhotoProperties::Tiff{{}, "Maker", "Model 1"}));
    EXPECT_THAT(read.pixelWidth, Optional(3072));
    EXPECT_THAT(read.pixelHeight, Optional(2048));
    expectBearsDamage(file);

    for (const std::string& attack : {crwOfDoublingHeaps(), crwOfNestedHeaps()}) {
        PhotoProperties none;
        EXPECT_LT(bytesReadOf(attack, none), 100'000U);
        EXPECT_EQ(none, PhotoProperties{});
    }
}

TEST(PhotoReaderTest, findsWhatStandsBehindThePixelsOfALargePng) {
    std::string png = tinyPng(pngChunk("IHDR", big(300, 4) + big(200, 4) + "\x08\0\0\0\0"s));
    for (int i = 0; i < 400; ++i) {
        png += pngChunk("IDAT", "eXIf tEXt" + std::string(8'183, 'x'));
    }
    PhotoProperties properties;
    EXPECT_LT(bytesReadOf(png + pngChunk("tEXt", "Comment\0none"s) +
                              pngChunk("eXIf", tinyExif(wholePhoto())) + pngChunk("IEND", ""),
                          properties),
              1'000'000U);
    expectWholePhoto(properties);
    bytesReadOf(png, properties); // breaks off
    EXPECT_THAT(properties.pixelWidth, Optional(300));
}

TEST(PhotoReaderTest, readsFilesMadeOfChunks) {
    TinyPhoto photo = wholePhoto();
    photo.lensModel.reset();
    const std::string xmp = tinyXmp(R"(aux:Lens="Lens 50mm")");
    const std::string tiff = tinyExif(photo);
    const std::string header = pngChunk("IHDR", big(300, 4) + big(200, 4) + "\x08\0\0\0\0"s);
    const PhotoProperties png =
        propertiesOf(tinyPng(header + pngChunk("IDAT", std::string(50'000, 'x')) + pngChunk("eXIf", tiff) +
                             pngChunk("iTXt", "XML:com.adobe.xmp\0\0\0\0\0"s + xmp) + pngChunk("IEND", "")));
    expectWholePhoto(png);
    EXPECT_THAT(png.pixelWidth, Optional(300));

    const std::string keyword = "Raw profile type exif\0"s;
    const std::string profile = pngProfile("Exif\0\0"s + tiff);
    for (const std::string& exif :
         {pngChunk("tEXt", keyword + profile), pngChunk("zTXt", keyword + '\0' + deflated(profile)),
          pngChunk("iTXt", keyword + "\1\0en\0\0"s + deflated(profile)),
          pngChunk("tEXt", "Raw profile type APP1\0"s + profile)}) {
        const std::string packet =
            pngChunk("iTXt", "XML:com.adobe.xmp\0\1\0\0\0"s + deflated(xmp)); // also as a profile:
        const std::string asProfile = pngChunk("tEXt", "Raw profile type xmp\0"s + pngProfile(xmp));
        expectWholePhoto(propertiesOf(tinyPng(header + exif + packet)));
        expectWholePhoto(propertiesOf(tinyPng(header + asProfile + exif)));
    }
    const std::string tooLong = deflated(std::string(5'000'000, ' ') + profile);
    EXPECT_EQ(propertiesOf(tinyPng(header + pngChunk("zTXt", keyword + '\0' + tooLong))).exif,
              PhotoProperties::Exif{});
    EXPECT_EQ(propertiesOf(movieBox("JXL ", "\r\n\x87\n") +
                           brotliBox("Exif", big(5'000'000, 4) + std::string(5'000'000, ' ') + tiff))
                  .exif,
              PhotoProperties::Exif{});

    const auto riffChunk = [](const std::string& type, const std::string& content) {
        return type + little(content.size(), 4) + content + std::string(content.size() % 2, '\0');
    };
    const std::string canvas = riffChunk("VP8X", little(0, 4) + little(299, 3) + little(199, 3));
    expectWholePhoto(propertiesOf("RIFF" + little(0, 4) + "WEBP" + canvas + riffChunk("ALPH", "odd") +
                                  riffChunk("EXIF", "Exif\0\0"s + tiff) + riffChunk("XMP ", xmp)));

    photo.lensModel = "Lens 50mm";
    const std::string whole = tinyExif(photo);
    expectWholePhoto(propertiesOf("\0MRM"s + big(0, 4) + "\0PRD"s + big(3, 4) + "abc" + "\0TTW"s +
                                  big(whole.size(), 4) + whole));
    expectWholePhoto(propertiesOf(box("jP  ", "\r\n\x87\n") +
                                  box("jp2h", box("ihdr", big(200, 4) + big(300, 4))) +
                                  box("uuid", "JpgTiffExif->JP2" + whole)));
}

} // namespace
} // namespace lumeo
