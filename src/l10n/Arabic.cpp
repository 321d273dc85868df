#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"تم"},
    {u"brand.slogan", u"وسائطك. أرشيفك."},
    {u"header.appearance.system", u"النظام"},
    {u"header.appearance.light", u"فاتح"},
    {u"header.appearance.dark", u"داكن"},

    {u"performance.title", u"تنبيه حول الأداء"},
    {u"performance.message",
     u"قد يستخدم LUMEO.\u200E وحدات التخزين بكثافة أثناء الفحص والنسخ والنقل وحساب التجزئة والتحقق.\n\n"
     u"• قد تبقى محركات الأقراص الخارجية مشغولة\n"
     u"• قد يبدو Finder وجهاز Mac أبطأ\n"
     u"• قد تُصدر محركات الأقراص الميكانيكية ضجيجًا أعلى\n"
     u"• قد تتباطأ التطبيقات الأخرى كثيفة الاستخدام للقرص\n"
     u"• قد يزداد مؤقتًا استخدام الذاكرة وذاكرة التخزين المؤقت للقرص"},
    {u"performance.expected", u"هذا متوقع أثناء المعالجة المكثفة للوسائط ولا يدل على وجود مشكلة."},
    {u"performance.inline", u"سيستخدم LUMEO.\u200E سعة نقل بيانات التخزين وذاكرة النظام وذاكرة التخزين "
                            u"المؤقت بكثافة أثناء هذه العملية. "
                            u"قد يبدو جهاز Mac أو محرك الأقراص الخارجي أبطأ مؤقتًا."},

    {u"last.title", u"آخر عملية مكتملة"},
    {u"last.filesProcessed", u"الملفات"},
    {u"last.dataTransferred", u"حجم البيانات"},
    {u"last.verified", u"تم التحقق منها"},
    {u"last.skipped", u"تم تخطيها"},
    {u"last.errors", u"الأخطاء"},
    {u"last.duration", u"المدة"},
    {u"last.operationType", u"العملية"},
    {u"last.destination", u"الوجهة"},
    {u"last.completedAt", u"وقت الاكتمال"},

    {u"operation.copy", u"نسخ"},
    {u"operation.move", u"نقل"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"المصادر"},
    {u"step.scanResults", u"نتائج الفحص"},
    {u"step.organization", u"التنظيم"},
    {u"step.preview", u"المعاينة"},
    {u"step.processing", u"المعالجة"},
    {u"step.report", u"التقرير"},

    {u"sources.heroTitle", u"نظّم وسائطك"},
    {u"sources.heroSubtitle", u"حوّل سنوات من الصور ومقاطع الفيديو المبعثرة إلى أرشيف مرتّب ومنظّم."},
    {u"sources.dropZoneTitle", u"أفلت المجلدات أو محركات الأقراص هنا"},
    {u"sources.chooseFolder", u"اختيار مجلد…"},
    {u"sources.scanMedia", u"فحص الوسائط"},
    {u"sources.safetyReassurance", u"لن يتم تغيير أي شيء أثناء الفحص."},
    {u"sources.privacyReassurance", u"تبقى وسائطك على جهاز Mac هذا."},

    {u"org.copyTitle", u"نسخ (موصى به)"},
    {u"org.moveTitle", u"نقل"},

    {u"report.title", u"اكتمل التنظيم"},
    {u"report.openInFinder", u"فتح في Finder"},
};

} // namespace

constinit const LanguageTables arabic{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
