#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"Готово"},
    {u"brand.slogan", u"Ваши медиафайлы. Ваш архив."},
    {u"header.appearance.system", u"Системное"},
    {u"header.appearance.light", u"Светлое"},
    {u"header.appearance.dark", u"Тёмное"},

    {u"performance.title", u"Влияние на производительность"},
    {u"performance.message", u"LUMEO. может интенсивно обращаться к накопителям при сканировании, "
                             u"копировании, перемещении, хешировании и проверке файлов.\n\n"
                             u"• Внешние диски могут оставаться занятыми\n"
                             u"• Finder и Mac могут работать медленнее\n"
                             u"• Механические диски могут шуметь сильнее\n"
                             u"• Другие программы, активно использующие диск, могут замедлиться\n"
                             u"• Использование памяти и дискового кэша может временно вырасти"},
    {u"performance.expected",
     u"Это нормально при интенсивной обработке медиафайлов и не указывает на неполадку."},
    {u"performance.inline",
     u"Во время этой операции LUMEO. будет активно использовать пропускную способность накопителей, "
     u"системную память и кэш. Mac или внешний диск может временно работать медленнее."},

    {u"last.title", u"Последняя завершённая операция"},
    {u"last.filesProcessed", u"Файлы"},
    {u"last.dataTransferred", u"Передано"},
    {u"last.verified", u"Проверено"},
    {u"last.skipped", u"Пропущено"},
    {u"last.errors", u"Ошибки"},
    {u"last.duration", u"Длительность"},
    {u"last.operationType", u"Операция"},
    {u"last.destination", u"Назначение"},
    {u"last.completedAt", u"Завершено"},

    {u"operation.copy", u"Копирование"},
    {u"operation.move", u"Перемещение"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"Источники"},
    {u"step.scanResults", u"Результаты сканирования"},
    {u"step.organization", u"Упорядочивание"},
    {u"step.preview", u"Предпросмотр"},
    {u"step.processing", u"Обработка"},
    {u"step.report", u"Отчёт"},

    {u"sources.heroTitle", u"Наведите порядок в медиафайлах"},
    {u"sources.heroSubtitle",
     u"Превратите разрозненные фото и видео, накопленные за годы, в аккуратный, структурированный архив."},
    {u"sources.dropZoneTitle", u"Перетащите папки или диски сюда"},
    {u"sources.chooseFolder", u"Выбрать папку…"},
    {u"sources.scanMedia", u"Сканировать медиа"},
    {u"sources.safetyReassurance", u"При сканировании ничего не изменяется."},
    {u"sources.privacyReassurance", u"Ваши медиафайлы остаются на этом Mac."},

    {u"org.copyTitle", u"Копировать (рекомендуется)"},
    {u"org.moveTitle", u"Переместить"},

    {u"report.title", u"Упорядочивание завершено"},
    {u"report.openInFinder", u"Открыть в Finder"},
};

} // namespace

constinit const LanguageTables russian{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
