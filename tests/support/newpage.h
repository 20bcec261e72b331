#pragma once

#include "pages/assistantsettingwidget.h"
#include "pages/texttranslatesettingwidget.h"
#include "pages/voiceiatsettingwidget.h"
#include "pages/voicettssettingwidget.h"
#include "tests/support/modulepages.h"

namespace testsupport {

/** A new page of the module, which must have one of that name. For tests that link its classes. */
inline QWidget *newPage(const QString &name)
{
    const QString className = modulePage(name).className;
    if (className == QLatin1String("VoiceIatSettingWidget"))
        return new VoiceIatSettingWidget;
    if (className == QLatin1String("VoiceTTSSettingWidget"))
        return new VoiceTTSSettingWidget;
    if (className == QLatin1String("TextTranslateSettingWidget"))
        return new TextTranslateSettingWidget;
    return new AssistantSettingWidget;
}

} // namespace testsupport
