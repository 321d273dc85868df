#include "l10n/PlatformWords.h"

#include <span>

namespace lumeo {
namespace {

struct Wording {
    QStringView theirs;
    QStringView ours;
};

// In each language the longer wordings come first, because they keep the grammar of the sentence right.
constexpr Wording english[] = {
    {u"Finder and your Mac", u"The file manager and your computer"},
    {u"Open in Finder", u"Open in File Manager"},
    {u"Use Finder filesystem date", u"Use filesystem date"},
    {u"Finder date", u"File date"},
    {u"macOS", u"your computer"},
    {u"Mac", u"computer"},
};
constexpr Wording turkish[] = {
    {u"Finder ve Mac’iniz", u"Dosya yöneticisi ve bilgisayarınız"},
    {u"Finder’da Aç", u"Dosya Yöneticisinde Aç"},
    {u"macOS için", u"Bilgisayarınız için"},
    {u"bu Mac’te", u"bu bilgisayarda"},
    {u"Mac’inizden", u"bilgisayarınızdan"},
    {u"Mac’inizde", u"bilgisayarınızda"},
    {u"Mac’iniz", u"Bilgisayarınız"},
};
constexpr Wording spanish[] = {{u"Finder", u"gestor de archivos"}, {u"Mac", u"ordenador"}};
constexpr Wording french[] = {
    {u"Finder", u"gestionnaire de fichiers"}, {u"ce Mac", u"cet ordinateur"}, {u"Mac", u"ordinateur"}};
constexpr Wording german[] = {{u"Finder", u"Dateimanager"}, {u"Mac", u"Computer"}};
constexpr Wording italian[] = {{u"Finder", u"gestore dei file"}, {u"Mac", u"computer"}};
constexpr Wording portuguese[] = {{u"Finder", u"gestor de ficheiros"}, {u"Mac", u"computador"}};
constexpr Wording russian[] = {
    {u"Finder и Mac", u"Файловый менеджер и компьютер"},
    {u"в Finder", u"в файловом менеджере"},
    {u"этом Mac", u"этом компьютере"},
    {u"Mac", u"Компьютер"},
};
constexpr Wording arabic[] = {
    {u"Finder وجهاز Mac", u"مدير الملفات والكمبيوتر"},
    {u"جهاز Mac هذا", u"هذا الكمبيوتر"},
    {u"جهاز Mac", u"الكمبيوتر"},
    {u"Finder", u"مدير الملفات"},
};
constexpr Wording chineseSimplified[] = {
    {u"Finder 和 Mac ", u"文件管理器和电脑"}, {u" Finder ", u"文件管理器"}, {u" Mac ", u"电脑"}};
constexpr Wording chineseTraditional[] = {
    {u"Finder 和 Mac ", u"檔案管理員和電腦"}, {u" Finder ", u"檔案管理員"}, {u" Mac ", u"電腦"}};
constexpr Wording japanese[] = {
    {u"Finder や Mac の", u"ファイルマネージャーやコンピューターの"},
    {u"Finder で", u"ファイルマネージャーで"},
    {u" Mac に", u"コンピューターに"},
    {u"Mac や", u"コンピューターや"},
};
constexpr Wording korean[] = {
    {u"Finder와 Mac이", u"파일 관리자와 컴퓨터가"},
    {u"Mac을", u"컴퓨터를"},
    {u"Finder", u"파일 관리자"},
    {u"Mac", u"컴퓨터"},
};
constexpr Wording hindi[] = {{u"Finder", u"फ़ाइल प्रबंधक"}, {u"Mac", u"कंप्यूटर"}};

std::span<const Wording> wordings(AppLanguage language) {
    switch (language) {
    case AppLanguage::english:
        return english;
    case AppLanguage::turkish:
        return turkish;
    case AppLanguage::spanish:
        return spanish;
    case AppLanguage::french:
        return french;
    case AppLanguage::german:
        return german;
    case AppLanguage::italian:
        return italian;
    case AppLanguage::portuguese:
        return portuguese;
    case AppLanguage::russian:
        return russian;
    case AppLanguage::arabic:
        return arabic;
    case AppLanguage::chineseSimplified:
        return chineseSimplified;
    case AppLanguage::chineseTraditional:
        return chineseTraditional;
    case AppLanguage::japanese:
        return japanese;
    case AppLanguage::korean:
        return korean;
    case AppLanguage::hindi:
        return hindi;
    }
    return {};
}

} // namespace

QString withPlatformWords(QStringView text, AppLanguage language) {
    QString ours = text.toString();
    for (const Wording& wording : wordings(language)) {
        ours.replace(wording.theirs.toString(), wording.ours.toString());
    }
    return ours;
}

} // namespace lumeo
