#include "scan/ScanProgress.h"

namespace lumeo {

Json encode(const ScanProgress& progress) {
    JsonWriter writer;
    writer.set("photosCount", progress.photosCount);
    writer.set("videosCount", progress.videosCount);
    writer.set("rawCount", progress.rawCount);
    writer.set("otherCount", progress.otherCount);
    writer.set("totalScannedCount", progress.totalScannedCount);
    writer.set("unsupportedCount", progress.unsupportedCount);
    writer.set("errorsCount", progress.errorsCount);
    writer.set("totalBytesScanned", progress.totalBytesScanned);
    writer.set("currentItemName", progress.currentItemName);
    writer.set("isPaused", progress.isPaused);
    writer.set("isCancelled", progress.isCancelled);
    writer.set("isCompleted", progress.isCompleted);
    writer.set("scanDurationSeconds", progress.scanDurationSeconds);
    return std::move(writer).take();
}

} // namespace lumeo
