import contents

App {
}
