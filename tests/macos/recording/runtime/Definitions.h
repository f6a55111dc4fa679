#pragma once

namespace stagehopper::recording {

// One function for each file of behaviors. Called once, by the first world.

void defineStrings();
void defineCollections();
void defineNumbers();
void defineDataAndErrors();
void defineJson();
void defineDates();
void defineUrls();
void defineProcessInformation();
void defineNotifications();
void defineTimers();

void defineTasks();
void defineFileHandles();
void defineUrlSessions();
void defineWebSockets();

void defineApplication();
void defineWindows();
void defineMenus();
void defineScreens();
void defineWorkspace();
void defineContentControllers();
void defineWebViews();

}  // namespace stagehopper::recording
