#pragma once

#include "bench/comparison.h"

namespace testsupport {
class ServiceProcess;
}

/** Takes what was found as soon as it was. */
using Report = std::function<void(const Ratio &)>;

// The comparisons, one function per subject. Each needs the services and the microphone running.

/** Opening each page until it is painted. */
void benchPages(const Report &report);
/** Writing a setting whose service, or the bus daemon, does not answer. */
void benchWrites(const Report &report, testsupport::ServiceProcess &assistant);
/** What visits of each page, and voice tests, leave behind. */
void benchMemory(const Report &report);
/** What wakes the processor while nobody does anything. */
void benchIdle(const Report &report);
void benchWave(const Report &report);
void benchLevel(const Report &report);
void benchMerge(const Report &report);
/** From the click of a voice test to the first block of sound. */
void benchFirstBlock(const Report &report);
/** What the module's file has in it. */
void benchPluginFile(const Report &report);
/** Loading the plugin in a host that has nothing of it yet. */
void benchLoad(const Report &report);
/** The sandbox's window, from its start until it shows a page, beside other windows of its kind. */
void benchColdStart(const Report &report);
/** Whole voice tests, on a display too. */
void benchVoiceTest(const Report &report);
