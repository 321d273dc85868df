#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"완료"},
    {u"brand.slogan", u"나의 미디어. 나의 아카이브."},
    {u"header.appearance.system", u"시스템"},
    {u"header.appearance.light", u"라이트"},
    {u"header.appearance.dark", u"다크"},

    {u"performance.title", u"성능 안내"},
    {u"performance.message",
     u"LUMEO.는 스캔, 복사, 이동, 해시 계산, 검증 중에 저장 장치를 집중적으로 사용할 수 있습니다.\n\n"
     u"• 외장 드라이브가 계속 사용 중일 수 있습니다\n"
     u"• Finder와 Mac이 느려진 것처럼 느껴질 수 있습니다\n"
     u"• 기계식 드라이브의 소음이 커질 수 있습니다\n"
     u"• 디스크를 많이 사용하는 다른 앱이 느려질 수 있습니다\n"
     u"• 메모리 및 디스크 캐시 사용량이 일시적으로 늘어날 수 있습니다"},
    {u"performance.expected",
     u"많은 미디어를 처리할 때 나타나는 정상적인 현상이며 문제가 있음을 의미하지 않습니다."},
    {u"performance.inline",
     u"이 작업 중에 LUMEO.는 저장 장치 대역폭과 시스템 메모리/캐시를 적극적으로 사용합니다. Mac 또는 외장 "
     u"드라이브가 일시적으로 느려진 것처럼 느껴질 수 있습니다."},

    {u"last.title", u"마지막으로 완료한 작업"},
    {u"last.filesProcessed", u"파일"},
    {u"last.dataTransferred", u"전송됨"},
    {u"last.verified", u"검증됨"},
    {u"last.skipped", u"건너뜀"},
    {u"last.errors", u"오류"},
    {u"last.duration", u"소요 시간"},
    {u"last.operationType", u"작업"},
    {u"last.destination", u"대상 위치"},
    {u"last.completedAt", u"완료 시각"},

    {u"operation.copy", u"복사"},
    {u"operation.move", u"이동"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"소스"},
    {u"step.scanResults", u"스캔 결과"},
    {u"step.organization", u"정리"},
    {u"step.preview", u"미리보기"},
    {u"step.processing", u"처리"},
    {u"step.report", u"보고서"},

    {u"sources.heroTitle", u"미디어 정리"},
    {u"sources.heroSubtitle",
     u"여러 해 동안 흩어져 있던 사진과 동영상을 깔끔하고 체계적인 아카이브로 정리하십시오."},
    {u"sources.dropZoneTitle", u"여기에 폴더 또는 드라이브를 놓으십시오"},
    {u"sources.chooseFolder", u"폴더 선택…"},
    {u"sources.scanMedia", u"미디어 스캔"},
    {u"sources.safetyReassurance", u"스캔하는 동안 아무것도 변경되지 않습니다."},
    {u"sources.privacyReassurance", u"미디어는 이 Mac을 벗어나지 않습니다."},

    {u"org.copyTitle", u"복사(권장)"},
    {u"org.moveTitle", u"이동"},

    {u"report.title", u"정리 완료"},
    {u"report.openInFinder", u"Finder에서 열기"},
};

} // namespace

constinit const LanguageTables korean{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
