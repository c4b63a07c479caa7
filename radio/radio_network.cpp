#include "radio/radio_network.h"

void StartO150() {
    RadioDemarre = true;
}

void StopO150() {
    RadioDemarre = false;
}
