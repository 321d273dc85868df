#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"完成"},
    {u"brand.slogan", u"您的媒體，您的典藏庫。"},
    {u"header.appearance.system", u"跟隨系統"},
    {u"header.appearance.light", u"淺色"},
    {u"header.appearance.dark", u"深色"},

    {u"performance.title", u"效能提示"},
    {u"performance.message", u"LUMEO. 在掃描、複製、移動、計算雜湊值與驗證時，可能會大量存取儲存裝置。\n\n"
                             u"• 外接磁碟機可能會持續忙碌\n"
                             u"• Finder 和 Mac 可能會感覺變慢\n"
                             u"• 傳統硬碟的運轉聲可能會變大\n"
                             u"• 其他大量使用磁碟的應用程式可能會變慢\n"
                             u"• 記憶體與磁碟快取的用量可能會暫時增加"},
    {u"performance.expected", u"這是處理大量媒體時的正常現象，並不表示發生問題。"},
    {u"performance.inline",
     u"執行這項作業時，LUMEO. 會大量使用儲存頻寬以及系統記憶體與快取。您的 Mac 或外接磁碟機可能會暫時變慢。"},

    {u"last.title", u"上次完成的作業"},
    {u"last.filesProcessed", u"檔案"},
    {u"last.dataTransferred", u"已傳輸"},
    {u"last.verified", u"已驗證"},
    {u"last.skipped", u"已略過"},
    {u"last.errors", u"錯誤"},
    {u"last.duration", u"耗時"},
    {u"last.operationType", u"作業"},
    {u"last.destination", u"目的地"},
    {u"last.completedAt", u"完成時間"},

    {u"operation.copy", u"複製"},
    {u"operation.move", u"移動"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"來源"},
    {u"step.scanResults", u"掃描結果"},
    {u"step.organization", u"整理"},
    {u"step.preview", u"預覽"},
    {u"step.processing", u"處理"},
    {u"step.report", u"報告"},

    {u"sources.heroTitle", u"整理您的媒體"},
    {u"sources.heroSubtitle", u"將多年來散落各處的相片和影片，整理成井然有序的典藏庫。"},
    {u"sources.dropZoneTitle", u"將資料夾或磁碟機拖放到這裡"},
    {u"sources.chooseFolder", u"選擇資料夾…"},
    {u"sources.scanMedia", u"掃描媒體"},
    {u"sources.safetyReassurance", u"掃描期間不會變更任何內容。"},
    {u"sources.privacyReassurance", u"您的媒體會留在這台 Mac 上。"},

    {u"org.copyTitle", u"複製（建議）"},
    {u"org.moveTitle", u"移動"},

    {u"report.title", u"整理完成"},
    {u"report.openInFinder", u"在 Finder 中開啟"},
};

} // namespace

constinit const LanguageTables chineseTraditional{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
