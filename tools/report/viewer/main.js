document.title = "x";
