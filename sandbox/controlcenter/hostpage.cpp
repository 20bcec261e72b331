#include "sandbox/controlcenter/hostpage.h"

#include "sandbox/controlcenter/palettecolors.h"

#include <QLabel>
#include <QVBoxLayout>

namespace controlcenter {

HostPage::HostPage(QWidget *parent)
    : QWidget(parent)
{
    auto *text = new QLabel(
        tr("These settings are the desktop's own. This window runs the assistant's module only."),
        this);
    text->setAlignment(Qt::AlignCenter);
    text->setWordWrap(true);
    text->setMaximumWidth(420);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text, 0, Qt::AlignCenter);
}

} // namespace controlcenter
