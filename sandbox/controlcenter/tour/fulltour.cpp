#include "sandbox/controlcenter/tour/fulltour.h"

#include "sandbox/controlcenter/tour/choicesteps.h"
#include "sandbox/controlcenter/tour/iconsteps.h"
#include "sandbox/controlcenter/tour/keyboardsteps.h"
#include "sandbox/controlcenter/tour/pagesteps.h"
#include "sandbox/controlcenter/tour/searchsteps.h"
#include "sandbox/controlcenter/tour/servicesteps.h"
#include "sandbox/controlcenter/tour/shortcutsteps.h"
#include "sandbox/controlcenter/tour/switchsteps.h"
#include "sandbox/controlcenter/tour/voicesteps.h"

namespace controlcenter {
namespace {

struct Section
{
    QString name;
    TourSteps (*steps)(const ControlCenterWindow *);
};

const QVector<Section> &sections()
{
    static const QVector<Section> all = {
        {QStringLiteral("pages"), pageSteps},         //
        {QStringLiteral("icons"), iconSteps},         //
        {QStringLiteral("search"), searchSteps},      //
        {QStringLiteral("switches"), switchSteps},    //
        {QStringLiteral("choices"), choiceSteps},     //
        {QStringLiteral("shortcuts"), shortcutSteps}, //
        {QStringLiteral("services"), serviceSteps},   //
        {QStringLiteral("keyboard"), keyboardSteps},  //
        {QStringLiteral("voice"), voiceSteps},
    };
    return all;
}

} // namespace

QStringList tourSections()
{
    QStringList names;
    for (const Section &section : sections())
        names.append(section.name);
    return names;
}

TourSteps tourSection(const QString &name, const ControlCenterWindow *window)
{
    for (const Section &section : sections())
        if (section.name == name)
            return section.steps(window);
    return {};
}

} // namespace controlcenter
