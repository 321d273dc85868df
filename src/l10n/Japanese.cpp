#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"完了"},
    {u"brand.slogan", u"あなたのメディア。あなたのアーカイブ。"},
    {u"header.appearance.system", u"システム"},
    {u"header.appearance.light", u"ライト"},
    {u"header.appearance.dark", u"ダーク"},

    {u"performance.title", u"パフォーマンスに関する注意"},
    {u"performance.message", u"LUMEO. "
                             u"は、スキャン、コピー、移動、ハッシュ計算、検証の際に、ストレージへ集中的にアク"
                             u"セスすることがあります。\n\n"
                             u"• 外付けドライブがビジー状態のままになることがあります\n"
                             u"• Finder や Mac の動作が遅く感じられることがあります\n"
                             u"• ハードディスクの動作音が大きくなることがあります\n"
                             u"• ディスクを多用するほかのアプリの動作が遅くなることがあります\n"
                             u"• メモリとディスクキャッシュの使用量が一時的に増えることがあります"},
    {u"performance.expected",
     u"これは大量のメディアを処理する際の通常の動作であり、問題を示すものではありません。"},
    {u"performance.inline",
     u"この処理中、LUMEO. はストレージの帯域幅とシステムのメモリ／キャッシュを積極的に使用します。Mac "
     u"や外付けドライブの動作が一時的に遅く感じられることがあります。"},

    {u"last.title", u"前回完了した処理"},
    {u"last.filesProcessed", u"ファイル"},
    {u"last.dataTransferred", u"転送済み"},
    {u"last.verified", u"検証済み"},
    {u"last.skipped", u"スキップ"},
    {u"last.errors", u"エラー"},
    {u"last.duration", u"所要時間"},
    {u"last.operationType", u"処理"},
    {u"last.destination", u"保存先"},
    {u"last.completedAt", u"完了日時"},

    {u"operation.copy", u"コピー"},
    {u"operation.move", u"移動"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"ソース"},
    {u"step.scanResults", u"スキャン結果"},
    {u"step.organization", u"整理"},
    {u"step.preview", u"プレビュー"},
    {u"step.processing", u"処理"},
    {u"step.report", u"レポート"},

    {u"sources.heroTitle", u"メディアを整理"},
    {u"sources.heroSubtitle",
     u"長年にわたって散らばった写真やビデオを、すっきりと整理されたアーカイブにまとめます。"},
    {u"sources.dropZoneTitle", u"ここにフォルダやドライブをドロップ"},
    {u"sources.chooseFolder", u"フォルダを選択…"},
    {u"sources.scanMedia", u"メディアをスキャン"},
    {u"sources.safetyReassurance", u"スキャン中に変更されるものはありません。"},
    {u"sources.privacyReassurance", u"メディアはこの Mac に残ります。"},

    {u"org.copyTitle", u"コピー（推奨）"},
    {u"org.moveTitle", u"移動"},

    {u"report.title", u"整理完了"},
    {u"report.openInFinder", u"Finder で開く"},
};

} // namespace

constinit const LanguageTables japanese{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
