#pragma once

#include "bench/comparison.h"

/** The comparisons, one function per subject. Each needs the services and the microphone running.
 */

QVector<Ratio> benchPages();
QVector<Ratio> benchWave();
QVector<Ratio> benchLevel();
QVector<Ratio> benchVoiceTest();
QVector<Ratio> benchLoad();
QVector<Ratio> benchMerge();

/** Milliseconds that the plugin @p file takes to load and to build its object; once per process. */
double timeLoadMs(const QString &file);
