// Light or dark: what the system says, until a person chooses.

const THEME_KEY = "quorvex-report-theme";
const THEMES = ["system", "light", "dark"];

// A browser may keep a page that is a file from storing anything.
function storedTheme() {
  try {
    const stored = localStorage.getItem(THEME_KEY);
    return THEMES.includes(stored) ? stored : "system";
  } catch {
    return "system";
  }
}

function storeTheme(theme) {
  try {
    localStorage.setItem(THEME_KEY, theme);
  } catch {
    // The choice then holds until the page is closed.
  }
}

/** @param {HTMLElement} button goes through the themes */
export function installTheme(button) {
  const systemIsDark = matchMedia("(prefers-color-scheme: dark)");
  let theme = storedTheme();
  const apply = () => {
    const isDark = theme === "dark" || (theme === "system" && systemIsDark.matches);
    document.documentElement.dataset.theme = isDark ? "dark" : "light";
    button.textContent = `Theme: ${theme}`;
  };
  button.addEventListener("click", () => {
    theme = THEMES[(THEMES.indexOf(theme) + 1) % THEMES.length];
    storeTheme(theme);
    apply();
  });
  systemIsDark.addEventListener("change", apply);
  apply();
}
