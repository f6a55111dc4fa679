#pragma once

namespace stagehopper::recording {

// One function for each file of behaviors. Called once, by the first world.

void defineStrings();
void defineCollections();
void defineJson();
void defineValues();
void defineUrls();
void defineProcessInformation();
void defineNotifications();
void defineTimers();
void defineTasks();
void defineUrlSessions();
void defineApplication();
void defineWindows();
void defineMenus();
void defineWorkspace();
void defineWebViews();

}  // namespace stagehopper::recording
