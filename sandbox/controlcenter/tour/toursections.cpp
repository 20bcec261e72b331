#include "sandbox/controlcenter/tour/toursections.h"

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
        {QStringLiteral("world"), worldSteps},        //
        {QStringLiteral("keyboard"), keyboardSteps},  //
        {QStringLiteral("looks"), lookSteps},         //
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
