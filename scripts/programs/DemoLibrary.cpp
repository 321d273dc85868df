#include "platform/FilePath.h"
#include "samples/TinyMovies.h"
#include "samples/TinyPhotos.h"

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

using namespace lumeo;

void write(const std::string& folder, const std::string& name, const std::string& content) {
    const std::filesystem::path path = std::filesystem::path(folder) / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

TinyPhoto taken(const std::string& when, const std::string& make, const std::string& model) {
    TinyPhoto photo;
    photo.width = 64;
    photo.height = 48;
    photo.dateTimeOriginal = when;
    photo.make = make;
    photo.model = model;
    return photo;
}

} // namespace

/// Makes the two folders that `./run demo` organizes, with the kinds of files that people collect.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: lumeo-demo-library PICTURES CARD\n";
        return 2;
    }
    const std::string pictures = argv[1];
    const std::string card = argv[2];

    const std::string beach = tinyJpeg(taken("2019:07:21 17:45:03", "Example", "Pocket 5"));
    write(pictures, "holiday/IMG_0412.JPG", beach);
    write(pictures, "holiday/copy of beach.jpg", beach);
    write(card, "DCIM/IMG_0412.JPG", tinyJpeg(taken("2019:07:30 09:12:44", "Example", "Pocket 5")));
    write(card, "DCIM/DSC_0007.DNG", tinyTiff(taken("2020:12:24 18:02:11", "Example", "Studio 1")));
    write(card, "DCIM/IMG_0001.JPG", tinyJpeg(taken("2000:01:01 00:00:12", "Example", "Pocket 5")));

    TinyMovie birthday;
    birthday.quickTimeCreationDate = "2021-03-14T15:30:45+0100";
    write(card, "DCIM/MVI_0033.MOV", tinyQuickTime(birthday));

    TinyPhoto undated;
    write(pictures, "phone/IMG_20210314_160210.jpg", tinyJpeg(undated));
    write(pictures, "phone/Screenshot 2022-11-02 at 08.15.00.png", "no picture inside, but a telling name");
    write(pictures, "scans/grandmother.tif", tinyTiff());
    write(pictures, "odd names/two\nlines.jpg",
          tinyJpeg(taken("2018:05:05 12:00:00", "Example", "Pocket 3")));
    undated.width = 24;
    write(pictures, "odd names/\xE9t\xE9 2018-08-15.jpg", tinyJpeg(undated));
    write(pictures, "tax.pdf", "no media");
    return 0;
}
