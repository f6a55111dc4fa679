// What the panel says. One entry a language; the keys are the ones in panel.html and panel.js.
const panelTexts = {
    en: {
        previousSlide: "Previous slide",
        nextSlide: "Next slide",
        slideControl: "Slide control",
        controlOff: "Off. The arrow and page keys do nothing in this window.",
        controlOn: "On. ← → and Page Up/Down in this window send steps, too.",
        debugLine: "Line for the diagnostic log",
        send: "Send",
        sendDebugLine: "Send to the diagnostic log",
        sentTitle: "Sent from here",
        nothingSent: "Nothing yet. Each step you send is listed here.",
        permissionHint:
            "Stagehopper needs your system's accessibility permission to turn the slides of " +
            "other programs.",
        openSettings: "Open accessibility settings",
        restartHint: "After you have allowed it, quit Stagehopper and start it again.",
        dismissPermissionHint: "Dismiss the permission hint",
        dismissRestartHint: "Dismiss the restart hint",
        noHost:
            "This page is open in a browser. It controls slides only inside Stagehopper's own " +
            "window, so its controls are switched off.",
    },
    zh: {
        previousSlide: "上一页",
        nextSlide: "下一页",
        slideControl: "翻页控制",
        controlOff: "已关闭：本窗口中的方向键和翻页键不起作用。",
        controlOn: "已开启：本窗口中的 ← → 和 PgUp/PgDn 也会发送翻页指令。",
        debugLine: "写入诊断日志的内容",
        send: "发送",
        sendDebugLine: "发送到诊断日志",
        sentTitle: "从此页发出的指令",
        nothingSent: "暂无。您发出的每一步都会列在这里。",
        permissionHint: "Stagehopper 需要系统的辅助功能权限，才能为其他程序翻页。",
        openSettings: "打开辅助功能设置",
        restartHint: "授权后，请退出并重新启动 Stagehopper。",
        dismissPermissionHint: "关闭权限提示",
        dismissRestartHint: "关闭重启提示",
        noHost: "此页面是在浏览器中打开的。只有在 Stagehopper 自己的窗口中才能翻页，因此控件已停用。",
    },
};
