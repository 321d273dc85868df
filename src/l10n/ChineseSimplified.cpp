#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"完成"},
    {u"brand.slogan", u"你的媒体，你的档案库。"},
    {u"header.appearance.system", u"跟随系统"},
    {u"header.appearance.light", u"浅色"},
    {u"header.appearance.dark", u"深色"},

    {u"performance.title", u"性能提示"},
    {u"performance.message", u"LUMEO. 在扫描、复制、移动、计算哈希值和校验时，可能会频繁读写存储设备。\n\n"
                             u"• 外置驱动器可能会持续忙碌\n"
                             u"• Finder 和 Mac 可能会感觉变慢\n"
                             u"• 机械硬盘的噪音可能会变大\n"
                             u"• 其他大量读写磁盘的应用可能会变慢\n"
                             u"• 内存和磁盘缓存的占用可能会暂时增加"},
    {u"performance.expected", u"这是处理大量媒体文件时的正常现象，并不表示存在问题。"},
    {u"performance.inline",
     u"此操作期间，LUMEO. 会大量占用存储带宽以及系统内存和缓存。你的 Mac 或外置驱动器可能会暂时变慢。"},

    {u"last.title", u"上次完成的操作"},
    {u"last.filesProcessed", u"文件"},
    {u"last.dataTransferred", u"已传输"},
    {u"last.verified", u"已校验"},
    {u"last.skipped", u"已跳过"},
    {u"last.errors", u"错误"},
    {u"last.duration", u"用时"},
    {u"last.operationType", u"操作"},
    {u"last.destination", u"目标位置"},
    {u"last.completedAt", u"完成时间"},

    {u"operation.copy", u"复制"},
    {u"operation.move", u"移动"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"来源"},
    {u"step.scanResults", u"扫描结果"},
    {u"step.organization", u"整理"},
    {u"step.preview", u"预览"},
    {u"step.processing", u"处理"},
    {u"step.report", u"报告"},

    {u"sources.heroTitle", u"整理你的媒体文件"},
    {u"sources.heroSubtitle", u"把多年来散落各处的照片和视频，整理成清晰有序的档案库。"},
    {u"sources.dropZoneTitle", u"将文件夹或驱动器拖放到此处"},
    {u"sources.chooseFolder", u"选择文件夹…"},
    {u"sources.scanMedia", u"扫描媒体"},
    {u"sources.safetyReassurance", u"扫描期间不会更改任何内容。"},
    {u"sources.privacyReassurance", u"你的媒体始终保留在这台 Mac 上。"},

    {u"org.copyTitle", u"复制（推荐）"},
    {u"org.moveTitle", u"移动"},

    {u"report.title", u"整理完成"},
    {u"report.openInFinder", u"在 Finder 中打开"},
};

} // namespace

constinit const LanguageTables chineseSimplified{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
