orlix threshold head.tif mask.tif --min 26000 --max 60000
