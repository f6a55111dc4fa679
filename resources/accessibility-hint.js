window._showAccessibilityHint && window._showAccessibilityHint(); window._showAccessibilityRestartHint && window._showAccessibilityRestartHint()
