#pragma once

/// From now on, whoever has logged in is asked once whether what had waited when the program ended
/// is to go back into the queue. Called once, at the start of the program.
void WirePutBackOffer();
