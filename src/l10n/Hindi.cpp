#include "l10n/LanguageTables.h"

namespace lumeo::tables {
namespace {

constexpr LocalizedText supplementaryTexts[] = {
    {u"common.done", u"हो गया"},
    {u"brand.slogan", u"आपका मीडिया। आपका आर्काइव।"},
    {u"header.appearance.system", u"सिस्टम"},
    {u"header.appearance.light", u"हल्का"},
    {u"header.appearance.dark", u"गहरा"},

    {u"performance.title", u"परफ़ॉर्मेंस सूचना"},
    {u"performance.message",
     u"LUMEO. स्कैन, कॉपी, मूव, हैश की गणना और सत्यापन करते समय स्टोरेज का बहुत अधिक उपयोग कर सकता है।\n\n"
     u"• बाहरी ड्राइव व्यस्त रह सकती हैं\n"
     u"• Finder और आपका Mac धीमे लग सकते हैं\n"
     u"• मैकेनिकल ड्राइव ज़्यादा आवाज़ कर सकती हैं\n"
     u"• डिस्क का अधिक उपयोग करने वाले अन्य ऐप धीमे हो सकते हैं\n"
     u"• मेमोरी और डिस्क कैश का उपयोग कुछ समय के लिए बढ़ सकता है"},
    {u"performance.expected",
     u"भारी मीडिया प्रोसेसिंग के दौरान ऐसा होना सामान्य है और यह किसी समस्या का संकेत नहीं है।"},
    {u"performance.inline",
     u"इस कार्य के दौरान LUMEO. स्टोरेज बैंडविड्थ और सिस्टम "
     u"मेमोरी/कैश का सक्रिय रूप से उपयोग करेगा। आपका Mac या बाहरी ड्राइव कुछ समय के लिए धीमी लग सकती है।"},

    {u"last.title", u"पिछला पूरा हुआ कार्य"},
    {u"last.filesProcessed", u"फ़ाइलें"},
    {u"last.dataTransferred", u"ट्रांसफ़र हुआ"},
    {u"last.verified", u"सत्यापित"},
    {u"last.skipped", u"छोड़ी गईं"},
    {u"last.errors", u"त्रुटियाँ"},
    {u"last.duration", u"अवधि"},
    {u"last.operationType", u"कार्य"},
    {u"last.destination", u"गंतव्य"},
    {u"last.completedAt", u"पूरा होने का समय"},

    {u"operation.copy", u"कॉपी"},
    {u"operation.move", u"मूव"},
};

constexpr LocalizedText mainTexts[] = {
    {u"step.sources", u"स्रोत"},
    {u"step.scanResults", u"स्कैन के परिणाम"},
    {u"step.organization", u"व्यवस्था"},
    {u"step.preview", u"पूर्वावलोकन"},
    {u"step.processing", u"प्रोसेसिंग"},
    {u"step.report", u"रिपोर्ट"},

    {u"sources.heroTitle", u"अपना मीडिया व्यवस्थित करें"},
    {u"sources.heroSubtitle", u"वर्षों से बिखरे फ़ोटो और वीडियो को साफ़-सुथरे, व्यवस्थित आर्काइव में बदलें।"},
    {u"sources.dropZoneTitle", u"फ़ोल्डर या ड्राइव यहाँ छोड़ें"},
    {u"sources.chooseFolder", u"फ़ोल्डर चुनें…"},
    {u"sources.scanMedia", u"मीडिया स्कैन करें"},
    {u"sources.safetyReassurance", u"स्कैन के दौरान कुछ भी नहीं बदला जाएगा।"},
    {u"sources.privacyReassurance", u"आपका मीडिया इसी Mac पर रहता है।"},

    {u"org.copyTitle", u"कॉपी करें (अनुशंसित)"},
    {u"org.moveTitle", u"मूव करें"},

    {u"report.title", u"मीडिया व्यवस्थित हो गया"},
    {u"report.openInFinder", u"Finder में खोलें"},
};

} // namespace

constinit const LanguageTables hindi{supplementaryTexts, mainTexts};

} // namespace lumeo::tables
